#include "engine/ParameterLinks.h"

#include <bit>
#include <utility>

namespace kestreleq
{
namespace
{

constexpr int looksToRest = 3;

constexpr std::uint32_t bitOf (Parameter parameter)
{
    return 1u << indexOf (parameter);
}

} // namespace

ParameterLinks::ParameterLinks (ParameterTree& treeToWatch)
    : tree (treeToWatch),
      values (treeToWatch.getValues())
{
    auto watcher = watchers.begin();
    const auto watch = [&] (Parameter parameter)
    {
        watcher->owner = this;
        watcher->parameter = parameter;
        tree[parameter].addListener (&*watcher);
        tree.addParameterListener (infoOf (parameter).id, &*watcher++);
    };

    for (const auto& [first, second] : linkedPairs)
    {
        watch (first);
        watch (second);
    }

    for (const auto linkSwitch : switches)
        watch (linkSwitch);

    // The framework makes room for a parameter's listeners when it first calls them: now, not on the audio thread.
    const ScopedPause pause (*this);
    for (const auto& each : watchers)
        tree[each.parameter].sendValueChangedMessageToListeners (tree[each.parameter].getValue());
}

ParameterLinks::~ParameterLinks()
{
    for (auto& watcher : watchers)
    {
        tree.removeParameterListener (infoOf (watcher.parameter).id, &watcher);
        tree[watcher.parameter].removeListener (&watcher);
    }
}

void ParameterLinks::changed (Parameter parameter)
{
    const auto thisThread = juce::Thread::getCurrentThreadId();

    if (copier == thisThread)
        return;

    unannounced &= ~bitOf (parameter); // whoever changes it tells the host, or is the host

    if (pauses > 0)
        return;

    waiting |= bitOf (parameter);

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
                copyTo (second, parameter, values[first]);

        return;
    }

    if (! values.isOn (Parameter::link))
        return;

    if (const auto partner = partnerOf (parameter))
        copyTo (*partner, parameter, values[parameter]);
}

/** The rules of one gain link. True when they have dealt with the change. */
bool ParameterLinks::followGainLink (Parameter linkSwitch, Parameter first, Parameter second, Parameter parameter)
{
    if (parameter == linkSwitch)
    {
        if (values.isOn (linkSwitch))
            copyTo (second, parameter, values[first]);

        return true;
    }

    if ((parameter != first && parameter != second) || ! values.isOn (linkSwitch))
        return false;

    copyTo (parameter == first ? second : first, parameter, values[parameter]);
    return true;
}

void ParameterLinks::copyTo (Parameter target, Parameter source, float value)
{
    auto& parameter = tree[target];

    // What the user changes is a gesture; any other change is the host's.
    if (gestures[indexOf (source)] != juce::Thread::getCurrentThreadId() && parameter.getValue() != value)
        unannounced |= bitOf (target);

    const ParameterTree::Gesture gesture (tree, parameter);
    parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
}

void ParameterLinks::announce()
{
    if (unannounced == 0)
    {
        restingLooks.fill (0);
        return;
    }

    for (std::size_t i = 0; i < numParameters; ++i)
    {
        auto& parameter = tree[static_cast<Parameter> (i)];
        const auto bit = bitOf (static_cast<Parameter> (i));
        const auto value = parameter.getValue();
        const bool rests = (unannounced & bit) != 0 && std::exchange (seenValues[i], value) == value;
        restingLooks[i] = rests ? restingLooks[i] + 1 : 0;

        if (restingLooks[i] < looksToRest || (unannounced.fetch_and (~bit) & bit) == 0)
            continue;

        // Not set anew: the host may be moving it again.
        const ParameterTree::Gesture gesture (tree, parameter);
        parameter.sendValueChangedMessageToListeners (parameter.getValue());
    }
}

} // namespace kestreleq
