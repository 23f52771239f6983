#pragma once

#include "ui_pro/controls/chart/ChartAxes.h"

#include <span>
#include <vector>

namespace kestreleq
{

/** So many frequencies in Hz, evenly along a chart's axis from end to end. */
std::vector<double> spreadFrequencies (const quillon::ui_pro::controls::ChartAxes& axes, std::size_t count);

/** The level in dB at a place on the plot, between the points of such a curve. */
double levelAt (const quillon::ui_pro::controls::ChartAxes& axes, std::span<const double> levels, float x);

/** The outlines of a response, made once per change: the line of some width, and the area between it and 0 dB. */
struct ResponsePath
{
    /** From levels in dB at the frequencies that `spreadFrequencies` gives. Empty where there is no plot. */
    static ResponsePath of (
        const quillon::ui_pro::controls::ChartAxes& axes, std::span<const double> levels, float lineWidth);

    juce::Path line;
    juce::Path fill;
};

} // namespace kestreleq
