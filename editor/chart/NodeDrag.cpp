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

void NodeDrag::set (juce::RangedAudioParameter* parameter, float value)
{
    if (parameter->getValue() != value)
        parameter->setValueNotifyingHost (value);
}

NodeDrag::NodeDrag (
    KestrelProcessor& processor, std::size_t lane, std::size_t node, float plotHeight, float octaveWidth)
    : owner (processor),
      parameters (parametersOf (processor, lane, node)),
      height (std::max (plotHeight, 1.0f)),
      octave (std::max (octaveWidth, 1.0f))
{
    owner.setPendingTransactionName (nodeStepName);
    owner.getCore().getHistory().beginStep();

    for (std::size_t i = 0; i < parameters.size(); ++i)
    {
        if (parameters[i] == nullptr)
            continue;

        startValues[i] = parameters[i]->getValue();
        parameters[i]->beginChangeGesture();
    }
}

NodeDrag::~NodeDrag()
{
    for (auto* parameter : parameters)
        if (parameter != nullptr)
            parameter->endChangeGesture();

    owner.getCore().getHistory().endStep();
}

void NodeDrag::moveBy (juce::Point<float> distance, bool fine)
{
    way += (distance - std::exchange (pointer, distance)) * (fine ? fineShare : 1.0f);
    set (parameters[0], std::clamp (startValues[0] - way.y / height, 0.0f, 1.0f));

    if (parameters[1] != nullptr)
    {
        const auto steps = std::round (startValues[1] * nodeAirSteps + way.x / octave);
        set (parameters[1], std::clamp (steps / nodeAirSteps, 0.0f, 1.0f));
    }
}

} // namespace kestreleq
