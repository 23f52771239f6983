#include "editor/chart/ChartNodes.h"

#include "editor/chart/ResponsePath.h"
#include "editor/lane/LaneKnobs.h"
#include "engine/dsp/AirFilter.h"

#include <algorithm>
#include <cmath>

namespace kestreleq
{
namespace
{

constexpr float reach = 14.0f; // design pixels around a node's centre

} // namespace

void ChartNodes::place (
    const quillon::ui_pro::controls::ChartAxes& axes, const dsp::LaneResponse& response, float airStep)
{
    const auto curve = response.getCurve();

    if (curve.empty() || axes.plot.isEmpty())
        return;

    for (std::size_t node = 0; node < count; ++node)
    {
        auto x = axes.xFor (laneKnobs[node].frequency);

        if (node == airNode)
        {
            // Its lowest frequency is the highest band's; there it stands beside it, so that both can be grasped.
            x = axes.xFor (laneKnobs[node].frequency * std::exp2 (dsp::airIndexFor (airStep)));
            x = std::max (x, positions[node - 1].x + 3.0f * radius);
        }

        x = std::clamp (x, axes.plot.getX() + radius, axes.plot.getRight() - radius);
        const auto y = std::clamp (
            axes.yFor (levelAt (axes, curve, x)), axes.plot.getY() + radius, axes.plot.getBottom() - radius);
        positions[node] = { x, y };
    }
}

std::optional<std::size_t> ChartNodes::hit (juce::Point<float> at) const
{
    std::optional<std::size_t> nearest;
    auto nearestDistance = reach;

    for (std::size_t node = 0; node < count; ++node)
    {
        const auto distance = positions[node].getDistanceFrom (at);

        if (distance <= nearestDistance)
        {
            nearest = node;
            nearestDistance = distance;
        }
    }

    return nearest;
}

} // namespace kestreleq
