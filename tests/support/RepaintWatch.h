#pragma once

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
        region.clear();
    }

    ~RepaintWatch() { component.setCachedComponentImage (nullptr); }

    /** How many areas were asked for since the last call. */
    int takeCount() { return std::exchange (count, 0); }

    /** The area round all that was asked for since the last call. */
    juce::Rectangle<int> takeArea() { return takeRegion().getBounds(); }

    /** All that was asked for since the last call. */
    juce::RectangleList<int> takeRegion() { return std::exchange (region, {}); }

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
            owner.region.add (invalid);
            return false;
        }

        void releaseResources() override {}

        RepaintWatch& owner;
    };

    juce::Component& component;
    juce::RectangleList<int> region;
    int count = 0;
};

} // namespace kestreleq::test
