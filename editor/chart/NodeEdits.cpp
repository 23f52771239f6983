#include "editor/chart/NodeEdits.h"

#include "editor/chart/ChartNodes.h"
#include "editor/lane/LaneKnobs.h"

#include <algorithm>
#include <cmath>

namespace kestreleq
{
namespace
{

/** A number and what follows it. */
struct Typed
{
    explicit Typed (const juce::String& text)
    {
        const auto trimmed = text.trim().replaceCharacter (',', '.');
        const auto length = trimmed.length() - trimmed.trimCharactersAtStart ("+-.0123456789").length();
        number = trimmed.substring (0, length);
        unit = trimmed.substring (length).trim().toLowerCase();
    }

    bool isNumber() const
    {
        const auto digits = number.startsWithChar ('+') || number.startsWithChar ('-') ? number.substring (1) : number;
        return digits.containsOnly (".0123456789") && digits.containsAnyOf ("0123456789") &&
            digits.indexOfChar ('.') == digits.lastIndexOfChar ('.');
    }

    juce::String number;
    juce::String unit;
};

void setAsGesture (KestrelProcessor& processor, juce::RangedAudioParameter& parameter, float value)
{
    const ParameterTree::Gesture gesture (processor.getCore().getTree(), parameter);

    if (parameter.getValue() != value)
        parameter.setValueNotifyingHost (value);
}

} // namespace

NodeParameters parametersOf (KestrelProcessor& processor, std::size_t lane, std::size_t node)
{
    auto& tree = processor.getCore().getTree();
    const auto find = [&] (std::size_t knob) { return &tree[onLane (laneKnobs[knob].parameter, lane)]; };

    return { find (node), node == ChartNodes::airNode ? find (airStepKnob) : nullptr };
}

NodeGesture::NodeGesture (KestrelProcessor& processor, const NodeParameters& parametersToMove)
    : owner (processor),
      parameters (parametersToMove)
{
    owner.setPendingTransactionName (nodeStepName);
    owner.getCore().getHistory().beginStep();

    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (parameters[i] != nullptr)
            gestures[i].emplace (owner.getCore().getTree(), *parameters[i]);
}

NodeGesture::~NodeGesture()
{
    for (auto& gesture : gestures)
        gesture.reset();

    owner.getCore().getHistory().endStep();
}

void NodeGesture::set (std::size_t index, float value)
{
    const auto within = std::clamp (value, 0.0f, 1.0f);

    if (auto& parameter = *parameters[index]; parameter.getValue() != within)
        parameter.setValueNotifyingHost (within);
}

void resetNode (KestrelProcessor& processor, std::size_t lane, std::size_t node)
{
    processor.getCore().getHistory().perform (nodeStepName,
        [&]
        {
            for (auto* parameter : parametersOf (processor, lane, node))
                if (parameter != nullptr)
                    setAsGesture (processor, *parameter, parameter->getDefaultValue());
        });
}

bool typeNode (KestrelProcessor& processor, std::size_t lane, std::size_t node, const juce::String& text)
{
    const Typed typed (text);
    const auto isAir = node == ChartNodes::airNode;
    const auto number = typed.number.getDoubleValue();
    const auto isFrequency = isAir &&
        (typed.unit == "k" || typed.unit == "khz" || typed.unit == "hz" || (typed.unit.isEmpty() && number > 1.0));

    if (! typed.isNumber() || ! (isFrequency || typed.unit.isEmpty() || (! isAir && typed.unit == "db")))
        return false;

    const auto inKilohertz = typed.unit.startsWithChar ('k') || (typed.unit.isEmpty() && number < 100.0);
    auto& parameter = *parametersOf (processor, lane, node)[isFrequency ? 1 : 0];
    const auto value = parameter.getValueForText (
        isFrequency ? juce::String (inKilohertz ? number : number / 1000.0) + "K" : typed.number);
    processor.getCore().getHistory().perform (nodeStepName, [&] { setAsGesture (processor, parameter, value); });
    return true;
}

} // namespace kestreleq
