#include "engine/ParameterLinks.h"

namespace kestreleq
{

ParameterLinks::ParameterLinks (juce::AudioProcessorValueTreeState& treeToWatch)
    : tree (treeToWatch),
      values (treeToWatch)
{
    for (std::size_t i = 0; i < numParameters; ++i)
        parameters[i] = tree.getParameter (parameterTable[i].id);

    auto watcher = watchers.begin();
    const auto watch = [&] (Parameter parameter)
    {
        watcher->owner = this;
        watcher->parameter = parameter;
        tree.addParameterListener (infoOf (parameter).id, &*watcher++);
    };

    for (const auto& [first, second] : linkedPairs)
    {
        watch (first);
        watch (second);
    }

    for (const auto linkSwitch : switches)
        watch (linkSwitch);
}

ParameterLinks::~ParameterLinks()
{
    for (auto& watcher : watchers)
        tree.removeParameterListener (infoOf (watcher.parameter).id, &watcher);
}

void ParameterLinks::changed (Parameter parameter, float value)
{
    if (paused)
        return;

    if (followGainLink (Parameter::inGainLink, Parameter::inGain1, Parameter::inGain2, parameter, value) ||
        followGainLink (Parameter::outGainLink, Parameter::outGain1, Parameter::outGain2, parameter, value))
        return;

    if (parameter == Parameter::link)
    {
        if (value >= flagThreshold)
            for (const auto& [first, second] : linkedPairs)
                copyTo (second, values[first]);

        return;
    }

    if (! values.isOn (Parameter::link))
        return;

    if (const auto partner = partnerOf (parameter))
        copyTo (*partner, value);
}

/** The rules of one gain link. True when they have dealt with the change. */
bool ParameterLinks::followGainLink (
    Parameter linkSwitch, Parameter first, Parameter second, Parameter parameter, float value)
{
    if (parameter == linkSwitch)
    {
        if (value >= flagThreshold)
            copyTo (second, values[first]);

        return true;
    }

    if ((parameter != first && parameter != second) || ! values.isOn (linkSwitch))
        return false;

    copyTo (parameter == first ? second : first, value);
    return true;
}

void ParameterLinks::copyTo (Parameter target, float value)
{
    const ScopedPause pause (*this);
    auto& parameter = *parameters[indexOf (target)];

    parameter.beginChangeGesture();
    parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    parameter.endChangeGesture();
}

} // namespace kestreleq
