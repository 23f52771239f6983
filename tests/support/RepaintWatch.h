#pragma once

#include "tests/support/Pictures.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::test
{

/** Collects what a component, with all its children, asks to have painted again. The component belongs to no window,
    is made visible and must outlive the watch. */
class RepaintWatch
{
public:
    explicit RepaintWatch (juce::Component& watched)
        : component (watched)
    {
        component.setVisible (true);
        component.setCachedComponentImage (new Collector (*this));
        count = 0; // it repaints everything for its new image
        areas = {};
    }

    ~RepaintWatch() { component.setCachedComponentImage (nullptr); }

    /** How many areas were asked for since the last call. */
    int takeCount() { return std::exchange (count, 0); }

    /** The area round all that was asked for since the last call. */
    juce::Rectangle<int> takeArea() { return std::exchange (areas, {}).getBounds(); }

    juce::RectangleList<int> takeAreas() { return std::exchange (areas, {}); }

private:
    struct Collector final : juce::CachedComponentImage
    {
        explicit Collector (RepaintWatch& ownerOfThis)
            : owner (ownerOfThis)
        {
        }

        void paint (juce::Graphics&) override {}

        bool invalidateAll() override { return invalidate (owner.component.getLocalBounds()); }

        bool invalidate (const juce::Rectangle<int>& invalid) override
        {
            ++owner.count;
            owner.areas.add (invalid);
            return false;
        }

        void releaseResources() override {}

        RepaintWatch& owner;
    };

    juce::Component& component;
    juce::RectangleList<int> areas;
    int count = 0;
};

/** How many pixels of a component show what was before the change, because nobody asked for them to be painted. */
template <typename Change>
int countStalePixels (juce::Component& component, Change&& change)
{
    auto before = paintPicture (component);
    juce::RectangleList<int> painted;
    {
        RepaintWatch watch (component);
        change();
        painted = watch.takeAreas();
    }
    auto after = paintPicture (component);

    for (auto* picture : { &before, &after })
        for (const auto& area : painted)
            picture->clear (area);

    return countDifferentPixels (before, after, 8);
}

} // namespace kestreleq::test
