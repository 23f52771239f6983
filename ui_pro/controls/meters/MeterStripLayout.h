#pragma once

#include <juce_graphics/juce_graphics.h>

#include <array>

namespace quillon::ui_pro::controls
{

/** Where the pieces of a meter strip stand. Bars come in the order left, right, gain reduction. */
struct MeterStripLayout
{
    static MeterStripLayout of (juce::Rectangle<int> bounds, bool withGainReduction);

    /** The place of the mark of a level, in the scale column. */
    juce::Rectangle<float> getMark (float db) const;

    /** The place of a bar's name above it. */
    juce::Rectangle<int> getTitle (int bar) const;

    juce::Rectangle<int> titleBand;
    juce::Rectangle<int> scale; // as high as the bars
    juce::Rectangle<int> group; // round all bars
    std::array<juce::Rectangle<int>, 3> bars;
    int numBars = 2;
};

} // namespace quillon::ui_pro::controls
