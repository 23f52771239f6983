#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::controls
{

/** Where frequencies and levels stand in a chart: frequencies along the plot, logarithmic, levels up it, linear. What
    lies beyond an axis stands at its end. */
struct ChartAxes
{
    juce::Rectangle<float> plot {};
    double lowestHz = 20.0; // at the left edge
    double highestHz = 20000.0;
    double lowestDb = -84.0; // at the bottom
    double highestDb = 24.0;

    /** A frequency in Hz; what is no positive number stands at the left. */
    float xFor (double hz) const;

    /** In Hz, within the axis. */
    double frequencyAt (float x) const;

    /** A level in dB; what is no number stands at the bottom. */
    float yFor (double db) const;
};

} // namespace quillon::ui_pro::controls
