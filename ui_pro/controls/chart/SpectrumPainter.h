#pragma once

#include <juce_graphics/juce_graphics.h>

#include <span>

namespace quillon::ui_pro::controls
{

/** Where the bins of a spectrum stand along its area. */
enum class BinPlacement
{
    edges,  // the first at the left edge, the last at the right one
    centres // each in the middle of its share of the width
};

/** How a spectrum is painted. */
struct SpectrumLook
{
    juce::Colour colour;
    float lineWidth = 1.15f; // pixels; 0 for the fill alone
    float minDb = -84.0f;    // at the area's bottom
    float maxDb = 24.0f;     // at its top
    BinPlacement placement = BinPlacement::edges;
    bool fill = true;
};

/** Paints a live spectrum: levels in dB of bins that are spaced evenly along the area, with a line and a fill down to
    the area's bottom. Levels beyond the range stand at its ends, those that are no numbers at the bottom. An area that
    reaches out of the plot is for the caller to clip. Message thread. */
void paintSpectrum (
    juce::Graphics& g, juce::Rectangle<float> area, std::span<const float> levels, const SpectrumLook& look);

} // namespace quillon::ui_pro::controls
