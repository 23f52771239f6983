#pragma once

#include "engine/ParameterTree.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <utility>

namespace kestreleq
{

/** The pairs that a link switch holds together: lane A's parameter and lane B's. */
inline constexpr std::array<std::pair<Parameter, Parameter>, 10> linkedPairs { {
    { Parameter::sub, Parameter::subR },
    { Parameter::hz40, Parameter::hz40R },
    { Parameter::hz160, Parameter::hz160R },
    { Parameter::hz650, Parameter::hz650R },
    { Parameter::hz2500, Parameter::hz2500R },
    { Parameter::airGain, Parameter::airGainR },
    { Parameter::airBand, Parameter::airBandR },
    { Parameter::inGain1, Parameter::inGain2 },
    { Parameter::outGain1, Parameter::outGain2 },
    { Parameter::laneABypass, Parameter::laneBBypass },
} };

/** The other member of a parameter's pair, if it has one. */
constexpr std::optional<Parameter> partnerOf (Parameter parameter)
{
    for (const auto& [first, second] : linkedPairs)
    {
        if (parameter == first)
            return second;

        if (parameter == second)
            return first;
    }

    return {};
}

/** Copies a change of one lane's parameter to the other lane while they are linked, and lane A's values to lane B when
    a link is switched on. Runs on whichever thread changes a parameter; copies reach the host as gestures, but for
   those of a change of the host's own, during which its wrapper is deaf: `announce` tells of them. */
class ParameterLinks
{
public:
    /** Listens to every linked parameter and link switch of the tree, which must outlive this object. */
    explicit ParameterLinks (ParameterTree& treeToWatch);
    ~ParameterLinks();

    /** Tells the host of the partners that moved with a change of its own, each as a gesture, once its value has rested
        for a moment. Message thread, ten times a second, not while a step of the history is made. */
    void announce();

    /** For when the host reads every value anew. Any thread. */
    void forgetUnannounced() { unannounced = 0; }

    /** While one of these lives, on any thread, no change is copied: for restoring values that belong together as they
        are. */
    class ScopedPause
    {
    public:
        explicit ScopedPause (ParameterLinks& links)
            : pauses (links.pauses)
        {
            ++pauses;
        }

        ~ScopedPause() { --pauses; }

        ScopedPause (const ScopedPause&) = delete;
        ScopedPause& operator= (const ScopedPause&) = delete;

    private:
        std::atomic<int>& pauses;
    };

private:
    static constexpr std::array<Parameter, 3> switches { Parameter::link, Parameter::inGainLink,
        Parameter::outGainLink };

    /** One per parameter, so that a notification needs no search by name. */
    struct Watcher final : juce::AudioProcessorValueTreeState::Listener, juce::AudioProcessorParameter::Listener
    {
        void parameterChanged (const juce::String&, float) override { owner->changed (parameter); }

        void parameterValueChanged (int, float) override {}

        void parameterGestureChanged (int index, bool isStarting) override
        {
            owner->gestures[static_cast<std::size_t> (index)] =
                isStarting ? juce::Thread::getCurrentThreadId() : juce::Thread::ThreadID();
        }

        ParameterLinks* owner = nullptr;
        Parameter parameter {};
    };

    void changed (Parameter parameter);
    void follow (Parameter parameter);
    bool followGainLink (Parameter linkSwitch, Parameter first, Parameter second, Parameter parameter);
    void copyTo (Parameter target, Parameter source, float value);

    ParameterTree& tree;
    const ParameterValues& values;
    std::array<Watcher, 2 * linkedPairs.size() + switches.size()> watchers;
    std::atomic<int> pauses { 0 };

    // A notification comes with a lock of its parameter held, and a copy takes the partner's: two threads that both
    // copied could wait for each other. So one copies at a time, also what others have left to it.
    std::atomic<juce::Thread::ThreadID> copier {};
    std::atomic<std::uint32_t> waiting { 0 }; // a bit per changed parameter
    static_assert (numParameters <= 32);

    std::array<std::atomic<juce::Thread::ThreadID>, numParameters> gestures {}; // by whom, of each parameter
    std::atomic<std::uint32_t> unannounced { 0 };                               // a bit per partner
    std::array<float, numParameters> seenValues {};                             // of these, when last looked at
    std::array<int, numParameters> restingLooks {};
};

} // namespace kestreleq
