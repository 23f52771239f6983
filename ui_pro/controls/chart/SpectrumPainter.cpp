#include "ui_pro/controls/chart/SpectrumPainter.h"

#include "ui_pro/controls/chart/CurvePainter.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float pixelsPerPoint = 2.5f; // of the screen: more detail is not seen, and costs as much again

} // namespace

std::vector<juce::Point<float>> makeSpectrumPoints (
    const ChartAxes& axes, std::span<const float> frequencies, std::span<const float> levels, float pitch)
{
    std::vector<juce::Point<float>> points;
    points.reserve (levels.size());

    // Columns of a fixed place: the same bins share one in every picture.
    auto column = -1;

    for (std::size_t i = 0; i < std::min (levels.size(), frequencies.size()); ++i)
    {
        const auto frequency = static_cast<double> (frequencies[i]);
        const juce::Point<float> point (axes.xFor (frequency), axes.yFor (static_cast<double> (levels[i])));
        const auto ownColumn = static_cast<int> ((point.x - axes.plot.getX()) / pitch);

        if (ownColumn != column)
            points.push_back (point);
        else if (point.y < points.back().y)
            points.back() = point;

        column = ownColumn;
    }

    return points;
}

void paintSpectrum (juce::Graphics& g, const ChartAxes& axes, std::span<const float> frequencies,
    std::span<const float> levels, const SpectrumLook& look)
{
    if (axes.plot.isEmpty())
        return;

    const auto pixel = 1.0f / g.getInternalContext().getPhysicalPixelScaleFactor();
    const auto points = makeSpectrumPoints (axes, frequencies, levels, pixelsPerPoint * pixel);

    if (look.fill)
        fillCurve (g, points, axes.plot.getBottom(), axes.plot, look.colour);

    if (look.lineWidth > 0.0f)
        strokeCurve (g, points, look.lineWidth, look.colour);
}

} // namespace quillon::ui_pro::controls
