#pragma once

#include "ui_pro/controls/presets/PresetBrowserTarget.h"

#include <functional>
#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

/** The list that opens below one of the preset browser's filter buttons, inside the browser. */
class PresetFilterMenu final : public juce::Component
{
public:
    struct Item
    {
        juce::String text;
        bool isTicked = false;
        std::function<void()> choose; // a heading has none
    };

    explicit PresetFilterMenu (std::vector<Item> itemsToOffer);

    /** Called before a choice is carried out, and when the menu is left without one. Deletes the menu. */
    std::function<void()> onClose;

    /** The height that shows every item. */
    int getIdealHeight() const;

    void paint (juce::Graphics& g) override;
    void resized() override;
    void mouseMove (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;
    bool keyPressed (const juce::KeyPress& key) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    int itemAt (const juce::MouseEvent& event) const;
    void moveHighlight (int step);
    void setHighlight (int item);
    void choose (int item);

    std::vector<Item> items;
    std::vector<std::unique_ptr<PresetBrowserTarget>> lines;
    int highlight = -1;
    int firstLine = 0;
};

} // namespace quillon::ui_pro::controls
