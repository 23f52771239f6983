#include "editor/chart/NodeDrag.h"

#include "editor/chart/ChartNodes.h"
#include "editor/lane/LaneKnobs.h"

#include <algorithm>
#include <cmath>

namespace kestreleq
{
namespace
{

constexpr auto stepName = "Move chart node";
constexpr float airSteps = 4.0f; // from the lowest frequency to the highest

} // namespace

NodeDrag::Parameters NodeDrag::parametersOf (KestrelProcessor& processor, std::size_t lane, std::size_t node)
{
    auto& tree = processor.getCore().getTree();
    const auto find = [&] (std::size_t knob) { return &tree[onLane (laneKnobs[knob].parameter, lane)]; };

    return { find (node), node == ChartNodes::airNode ? find (airStepKnob) : nullptr };
}

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
    owner.setPendingTransactionName (stepName);
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

void NodeDrag::moveBy (juce::Point<float> distance)
{
    set (parameters[0], std::clamp (startValues[0] - distance.y / height, 0.0f, 1.0f));

    if (parameters[1] != nullptr)
    {
        const auto steps = std::round (startValues[1] * airSteps + distance.x / octave);
        set (parameters[1], std::clamp (steps / airSteps, 0.0f, 1.0f));
    }
}

void NodeDrag::reset (KestrelProcessor& processor, std::size_t lane, std::size_t node)
{
    processor.getCore().getHistory().perform (stepName,
        [&]
        {
            for (auto* parameter : parametersOf (processor, lane, node))
            {
                if (parameter == nullptr)
                    continue;

                parameter->beginChangeGesture();
                set (parameter, parameter->getDefaultValue());
                parameter->endChangeGesture();
            }
        });
}

} // namespace kestreleq
