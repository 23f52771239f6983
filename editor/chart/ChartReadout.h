#pragma once

#include "ui_pro/controls/chart/ChartAxes.h"
#include "ui_pro/primitives/PixelGrid.h"

#include <span>
#include <vector>

namespace kestreleq
{

/** A few words in a box on a chart that tell what is at one place of it. */
struct ChartReadout
{
    struct Word
    {
        juce::String text;
        juce::Colour colour;
        bool bold = false;
    };

    /** All words with a blank between. */
    juce::String getText() const;

    std::vector<Word> words;
    juce::Point<float> at; // on the curve
    float distance = 0.0f; // from there to the box's edge, above or below; 0 for a box at an edge of the plot
};

/** The readout's box, as large as its words and on whole pixels. */
juce::Rectangle<float> layOutReadout (const quillon::ui_pro::controls::ChartAxes& axes, std::span<const double> curve,
    const ChartReadout& readout, const quillon::ui_pro::primitives::PixelGrid& pixels);

/** Paints it into that box. */
void paintChartReadout (juce::Graphics& g, juce::Rectangle<float> box, const ChartReadout& readout,
    const quillon::ui_pro::primitives::PixelGrid& pixels);

/** A box of this size for a readout, within the plot and clear of the curve, whose levels lie evenly along the axis. */
juce::Rectangle<float> placeReadout (const quillon::ui_pro::controls::ChartAxes& axes, std::span<const double> curve,
    const ChartReadout& readout, juce::Point<float> size);

/** A frequency in Hz as it is read: "632 Hz", "2.5 kHz". */
juce::String describeFrequency (double hz);

/** A level in dB with its sign. */
juce::String describeLevel (double db);

} // namespace kestreleq
