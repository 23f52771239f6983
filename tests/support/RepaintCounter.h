#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::test
{

/** Stands in for a component's cached picture and notes what is asked to be painted anew. The component owns it. */
class RepaintCounter final : public juce::CachedComponentImage
{
public:
    static RepaintCounter& watch (juce::Component& component)
    {
        auto* const counter = new RepaintCounter;
        component.setCachedComponentImage (counter);
        counter->clear(); // of the change of the cache itself
        return *counter;
    }

    void paint (juce::Graphics&) override {}

    bool invalidateAll() override
    {
        ++count;
        whole = true;
        return false;
    }

    bool invalidate (const juce::Rectangle<int>& area) override
    {
        ++count;
        dirty.add (area);
        return false;
    }

    void releaseResources() override {}

    void clear()
    {
        count = 0;
        whole = false;
        dirty.clear();
    }

    int count = 0;
    bool whole = false;
    juce::RectangleList<int> dirty;
};

} // namespace kestreleq::test
