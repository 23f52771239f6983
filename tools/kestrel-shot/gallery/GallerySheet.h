#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>
#include <vector>

namespace kestreleq::shot
{

/** A sheet of captioned components in titled sections: rows from left to right, broken where the sheet ends. */
class GallerySheet final : public juce::Component
{
public:
    GallerySheet();
    ~GallerySheet() override;

    /** Starts a section; what is added from here on stands in it. */
    void addSection (const juce::String& title);

    /** Takes a component that already has its size and its state. */
    template <typename ComponentType>
    ComponentType& add (const juce::String& caption, std::unique_ptr<ComponentType> component)
    {
        auto& added = *component;
        place (caption, std::move (component));
        return added;
    }

    void paint (juce::Graphics& g) override;

private:
    struct Caption
    {
        juce::String text;
        juce::Rectangle<int> area;
        bool isTitle;
    };

    void place (const juce::String& caption, std::unique_ptr<juce::Component> component);
    void startRow();

    std::vector<std::unique_ptr<juce::Component>> components;
    std::vector<Caption> captions;
    juce::Point<int> corner; // of the next component
    int rowHeight = 0;
};

} // namespace kestreleq::shot
