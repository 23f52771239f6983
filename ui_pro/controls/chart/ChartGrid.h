#pragma once

#include "ui_pro/controls/chart/ChartAxes.h"
#include "ui_pro/primitives/PixelGrid.h"

#include <span>
#include <vector>

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

/** The lines within the plot: each a design pixel wide, but at least one of the screen's, and on whole ones. */
void paintGridLines (juce::Graphics& g, const ChartGrid& grid, const primitives::PixelGrid& pixels);

/** The labels, in letters that can be read. What would touch another is left out; 0 dB and the ends of the frequencies
    go first. */
void paintGridLabels (juce::Graphics& g, const ChartGrid& grid, const primitives::PixelGrid& pixels);

/** A text at its place. */
struct GridLabel
{
    juce::String text;
    juce::Rectangle<float> box;
};

/** The labels that find room, in an undefined order. */
std::vector<GridLabel> placeGridLabels (const ChartGrid& grid, const primitives::PixelGrid& pixels);

} // namespace quillon::ui_pro::controls
