#include "engine/ParameterLinks.h"

#include <bit>

namespace kestreleq
{

ParameterLinks::ParameterLinks (ParameterTree& treeToWatch)
    : tree (treeToWatch),
      values (treeToWatch.getValues())
{
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

void ParameterLinks::changed (Parameter parameter)
{
    const auto thisThread = juce::Thread::getCurrentThreadId();

    if (pauses > 0 || copier == thisThread)
        return;

    waiting |= 1u << indexOf (parameter);

    while (waiting != 0)
    {
        juce::Thread::ThreadID nobody {};

        if (! copier.compare_exchange_strong (nobody, thisThread))
            return;

        for (auto bits = waiting.exchange (0); bits != 0; bits &= bits - 1)
            follow (static_cast<Parameter> (std::countr_zero (bits)));

        copier = nobody;
    }
}

void ParameterLinks::follow (Parameter parameter)
{
    if (followGainLink (Parameter::inGainLink, Parameter::inGain1, Parameter::inGain2, parameter) ||
        followGainLink (Parameter::outGainLink, Parameter::outGain1, Parameter::outGain2, parameter))
        return;

    if (parameter == Parameter::link)
    {
        if (values.isOn (Parameter::link))
            for (const auto& [first, second] : linkedPairs)
                copyTo (second, values[first]);

        return;
    }

    if (! values.isOn (Parameter::link))
        return;

    if (const auto partner = partnerOf (parameter))
        copyTo (*partner, values[parameter]);
}

/** The rules of one gain link. True when they have dealt with the change. */
bool ParameterLinks::followGainLink (Parameter linkSwitch, Parameter first, Parameter second, Parameter parameter)
{
    if (parameter == linkSwitch)
    {
        if (values.isOn (linkSwitch))
            copyTo (second, values[first]);

        return true;
    }

    if ((parameter != first && parameter != second) || ! values.isOn (linkSwitch))
        return false;

    copyTo (parameter == first ? second : first, values[parameter]);
    return true;
}

void ParameterLinks::copyTo (Parameter target, float value)
{
    auto& parameter = tree[target];

    parameter.beginChangeGesture();
    parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    parameter.endChangeGesture();
}

} // namespace kestreleq
