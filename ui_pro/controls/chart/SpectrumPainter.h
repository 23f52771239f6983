#pragma once

#include "ui_pro/controls/chart/ChartAxes.h"

#include <span>
#include <vector>

namespace quillon::ui_pro::controls
{

/** How a spectrum is painted. */
struct SpectrumLook
{
    juce::Colour colour;
    float lineWidth = 1.15f; // pixels; 0 for the fill alone
    bool fill = true;
};

/** Paints a live spectrum: levels in dB at ascending frequencies in Hz, with a line and a fill down to the plot's
    bottom. Message thread. */
void paintSpectrum (juce::Graphics& g, const ChartAxes& axes, std::span<const float> frequencies,
    std::span<const float> levels, const SpectrumLook& look);

/** The points of that line. Of what stands closer together than `pitch` pixels, or beyond the end of the axis, the
    highest remains, at its own frequency: a peak that is one bin wide shows wherever it stands. */
std::vector<juce::Point<float>> makeSpectrumPoints (
    const ChartAxes& axes, std::span<const float> frequencies, std::span<const float> levels, float pitch);

} // namespace quillon::ui_pro::controls
