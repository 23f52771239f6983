#pragma once

#include "ui_pro/controls/chart/ChartAxes.h"

#include <span>

namespace quillon::ui_pro::controls
{

/** The lines that a chart draws at some frequencies and levels, and what it writes at them. */
struct ChartGrid
{
    enum class Labels
    {
        inside, // beside the lines
        outside // left of the plot and below it
    };

    ChartAxes axes;
    std::span<const double> frequencies {}; // Hz
    std::span<const int> levels {};         // dB
    juce::Colour zeroLine {};
    juce::Colour levelLine {};
    juce::Colour frequencyLine {};
    juce::Colour text {};
    float textSize = 10.0f;
    Labels labels = Labels::inside;
};

/** The lines, each a pixel wide and within the plot. */
void paintGridLines (juce::Graphics& g, const ChartGrid& grid);

/** The labels; inside the plot, those that find no room beside their neighbours are left out. */
void paintGridLabels (juce::Graphics& g, const ChartGrid& grid);

} // namespace quillon::ui_pro::controls
