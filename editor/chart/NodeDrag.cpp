#include "editor/chart/NodeDrag.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestreleq
{
namespace
{

constexpr float fineShare = 0.1f;

} // namespace

NodeDrag::NodeDrag (
    KestrelProcessor& processor, std::size_t lane, std::size_t node, float plotHeight, float octaveWidth)
    : parameters (parametersOf (processor, lane, node)),
      gesture (processor, parameters),
      height (std::max (plotHeight, 1.0f)),
      octave (std::max (octaveWidth, 1.0f))
{
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (parameters[i] != nullptr)
            startValues[i] = parameters[i]->getValue();
}

void NodeDrag::moveBy (juce::Point<float> distance, bool fine)
{
    way += (distance - std::exchange (pointer, distance)) * (fine ? fineShare : 1.0f);
    gesture.set (0, startValues[0] - way.y / height);

    if (parameters[1] != nullptr)
        gesture.set (1, std::round (startValues[1] * nodeAirSteps + way.x / octave) / nodeAirSteps);
}

} // namespace kestreleq
