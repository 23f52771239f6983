#include "editor/chart/ResponsePath.h"

#include "ui_pro/controls/chart/CurvePainter.h"

#include <algorithm>
#include <cmath>

namespace kestreleq
{
namespace
{

constexpr float unseen = 0.05f; // design pixels by which the drawn curve may be off; each point costs at every painting

} // namespace

std::vector<double> spreadFrequencies (const quillon::ui_pro::controls::ChartAxes& axes, std::size_t count)
{
    std::vector<double> frequencies (count);

    for (std::size_t i = 0; i < count; ++i)
        frequencies[i] = axes.lowestHz *
            std::pow (axes.highestHz / axes.lowestHz, static_cast<double> (i) / static_cast<double> (count - 1));

    return frequencies;
}

double levelAt (const quillon::ui_pro::controls::ChartAxes& axes, std::span<const double> levels, float x)
{
    const auto last = static_cast<float> (levels.size() - 1);
    const auto point = std::clamp ((x - axes.plot.getX()) / axes.plot.getWidth() * last, 0.0f, last);
    const auto below = static_cast<std::size_t> (point);
    const auto above = std::min (below + 1, levels.size() - 1);
    return std::lerp (levels[below], levels[above], static_cast<double> (point - std::floor (point)));
}

ResponsePath ResponsePath::of (
    const quillon::ui_pro::controls::ChartAxes& axes, std::span<const double> levels, float lineWidth)
{
    const auto plot = axes.plot;

    if (plot.isEmpty() || levels.size() < 2)
        return {};

    std::vector<juce::Point<float>> points (levels.size());

    for (std::size_t i = 0; i < levels.size(); ++i)
    {
        const auto part = static_cast<float> (i) / static_cast<float> (levels.size() - 1);
        points[i] = { plot.getX() + part * plot.getWidth(), axes.yFor (levels[i]) };
    }

    points = quillon::ui_pro::controls::thinCurve (points, unseen);
    ResponsePath result;
    result.line = quillon::ui_pro::controls::outlineCurve (points, lineWidth);
    result.fill.startNewSubPath (plot.getX(), axes.yFor (0.0));

    for (const auto& point : points)
        result.fill.lineTo (point);

    result.fill.lineTo (plot.getRight(), axes.yFor (0.0));
    result.fill.closeSubPath();
    return result;
}

} // namespace kestreleq
