#pragma once

#include <juce_graphics/juce_graphics.h>

namespace kestreleq
{

/** The chart's axes within a view of any size: 20 Hz to 40 kHz, logarithmic, and -18 to +18 dB, linear. All positions
    are in the view's coordinates. */
class ChartScale
{
public:
    static constexpr double lowestFrequency = 20.0;
    static constexpr double highestFrequency = 40000.0;
    static constexpr double largestLevel = 18.0; // dB, up and down

    /** How much of the view the labels and the margins take. */
    static constexpr int horizontalMargins = 31;
    static constexpr int verticalMargins = 19;

    ChartScale() = default;
    ChartScale (int viewWidth, int viewHeight);

    juce::Rectangle<float> plot() const { return area; }

    /** Frequencies in Hz, limited to the axis. */
    float xFor (double frequency) const;
    double frequencyAt (float x) const;

    /** Levels in dB, limited to the axis. */
    float yFor (double level) const;

    /** The part of the plot below 20 kHz, where the live spectrum stands. */
    juce::Rectangle<float> spectrumArea() const;

private:
    juce::Rectangle<float> area;
};

} // namespace kestreleq
