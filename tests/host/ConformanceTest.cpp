#include "engine/parameters/ParameterTable.h"
#include "tests/support/Signals.h"
#include "tests/support/Vst3Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <thread>

namespace kestreleq::test
{
namespace
{

using namespace Steinberg;

bool allFinite (const std::vector<float>& samples)
{
    return std::isfinite (peak (samples));
}

/** Noise through an instance, a block at a time. */
struct NoiseBlocks
{
    std::vector<float> left, right;

    NoiseBlocks (Vst3Instance& instance, int numSamples, int block)
        : left (whiteNoise (1, numSamples, 0.5)),
          right (whiteNoise (2, numSamples, 0.5))
    {
        for (int start = 0; start < numSamples; start += block)
        {
            const auto length = std::min (block, numSamples - start);
            EXPECT_EQ (instance.process (left.data() + start, right.data() + start, length), kResultOk);
        }
    }

    bool operator== (const NoiseBlocks&) const = default;
};

TEST (Conformance, OpensAndClosesInAnyOrder)
{
    Vst3Module module;

    for (int i = 0; i < 3; ++i)
    {
        module.createComponent(); // and drop it
        auto component = module.createComponent();
        auto controller = module.createController (*component);
        component->terminate(); // before it was initialised

        component->initialize (nullptr);
        component->initialize (nullptr);
        component->terminate();
        component->terminate();
        i % 2 == 0 ? controller->initialize (nullptr) : kResultOk;
        i % 2 == 0 ? component = nullptr : nullptr; // one first, then the other
        controller = nullptr;
    }

    // A second load of the same module, left in the other order.
    auto other = std::make_unique<Vst3Module>();
    auto instance = std::make_unique<Vst3Instance> (module);
    instance->start (48000.0, 64);
    const Vst3Instance second (*other);
    instance->stop();
    instance.reset();
    module.getFactory()->addRef();
    EXPECT_GE (module.getFactory()->release(), 1u);
}

TEST (Conformance, TellsWhatItLooksLike)
{
    Vst3Module module;
    PClassInfo effect;
    EXPECT_EQ (module.getFactory()->getClassInfo (0, &effect), kResultOk);
    const auto id = juce::String::toHexString (effect.cid, sizeof (effect.cid), 0).toUpperCase();
    const auto picture = "Contents/Resources/Snapshots/" + id + "_snapshot.png";
    EXPECT_TRUE (juce::File (KESTREL_MODULE_PATH).getChildFile (picture).existsAsFile()) << picture;
}

// In whatever order a confused host makes its calls, none of them fails badly and no sample is lost to NaN.
TEST (Conformance, StandsCallsInAnyOrder)
{
    Vst3Module module;
    Vst3Instance instance (module);
    const auto parameters = parametersOf (*instance.controller);
    const auto state = instance.save();
    std::mt19937 random (1);
    std::vector<float> left (4096), right (4096);
    bool finite = true;
    auto prepared = 1024; // what the module's wrapper starts with

    const auto oneOf = [&random] (unsigned count) { return static_cast<int> (random() % count); };
    const auto playNoise = [&]
    {
        left = right = whiteNoise (static_cast<std::uint32_t> (random()), 4096, 0.5);
        instance.process (left.data(), right.data(), oneOf (static_cast<unsigned> (prepared) + 1));
        finite &= allFinite (left) && allFinite (right);
    };
    const auto automateAll = [&]
    {
        ParameterChanges changes;
        changes.add (12345, 0.5); // none of ours

        for (const auto& info : parameters)
            changes.add (info.id, oneOf (1025) / 1024.0);

        instance.process (nullptr, nullptr, 0, &changes);
    };
    const std::function<void()> calls[] {
        [&] { instance.setUp (8000.0 * (1 + oneOf (96)), prepared = 1 + oneOf (4096)); },
        [&] { instance.setUp (oneOf (2) == 0 ? 0.0 : std::numeric_limits<double>::quiet_NaN(), prepared); },
        [&] { instance.component->setActive (oneOf (2) == 0); },
        [&] { instance.processor->setProcessing (oneOf (2) == 0); },
        [&] { EXPECT_FALSE (instance.save().empty()); },
        [&] { instance.restore (oneOf (2) == 0 ? state : std::vector<char> (random() % 100, 'x')); },
        [&] { instance.component->activateBus (Vst::kAudio, oneOf (2) == 0 ? Vst::kInput : Vst::kOutput, 0, true); },
        automateAll,
        playNoise,
        playNoise,
        playNoise,
    };

    for (int i = 0; i < 3000; ++i)
        calls[random() % std::size (calls)]();

    EXPECT_TRUE (finite);
    instance.start (48000.0, 512);
    EXPECT_GT (peak (NoiseBlocks (instance, 4096, 512).left), 0.1);
}

// A host that breaks its word: the wrapper has prepared for less than comes.
TEST (Conformance, SuspendsAndResumesAndSurvivesLongerBlocksThanAnnounced)
{
    Vst3Module module;
    Vst3Instance instance (module);
    instance.start (48000.0, 256);
    instance.start (48000.0, 256); // and again
    const NoiseBlocks first (instance, 4096, 256);
    instance.stop();
    instance.start (48000.0, 256);
    EXPECT_EQ (NoiseBlocks (instance, 4096, 256), first) << "what was before a suspension does not sound after it";
    instance.stop();
    instance.start (48000.0, 256);
    EXPECT_EQ (NoiseBlocks (instance, 4096, 4096), first);
}

TEST (Conformance, TheHostsBypassParameterBypasses)
{
    Vst3Module module;
    Vst3Instance instance (module);
    Settings flagged;

    for (std::size_t i = 0; i < numParameters; ++i)
        if ((parametersOf (*instance.controller)[i].flags & Vst::ParameterInfo::kIsBypass) != 0)
            flagged.emplace_back (parameterTable[i].id, 1.0);

    EXPECT_EQ (flagged, (Settings { { "bypass", 1.0 } }));
    instance.start (48000.0, 512);
    const auto active = NoiseBlocks (instance, 4096, 512).left;
    instance.set (flagged);
    EXPECT_NE (NoiseBlocks (instance, 4096, 512).left, active);
    EXPECT_EQ (NoiseBlocks (instance, 4096, 512).left, whiteNoise (1, 4096, 0.5)) << "to the bit once it has gone over";

    // Released, it starts from cleared filters: after 10 ms the output is that of the first block that ever was.
    instance.set ({ { "bypass", 0.0 } });
    const auto released = NoiseBlocks (instance, 4096, 512).left;
    EXPECT_NE (released[0], active[0]);
    EXPECT_TRUE (std::equal (released.begin() + 480, released.end(), active.begin() + 480));
}

TEST (Conformance, RefusesOtherBusesAndKeepsItsOwn)
{
    Vst3Module module;
    Vst3Instance instance (module);
    namespace Arr = Vst::SpeakerArr;
    EXPECT_EQ (instance.component->getBusCount (Vst::kAudio, Vst::kInput), 1);
    EXPECT_EQ (instance.component->getBusCount (Vst::kAudio, Vst::kOutput), 1);
    EXPECT_EQ (instance.component->getBusCount (Vst::kEvent, Vst::kInput), 0);
    EXPECT_EQ (instance.processor->canProcessSampleSize (Vst::kSample64), kResultFalse);

    using Buses = std::vector<Vst::SpeakerArrangement>;
    const auto set = [&] (Buses ins, Buses outs)
    {
        return instance.processor->setBusArrangements (
            ins.data(), static_cast<int32> (ins.size()), outs.data(), static_cast<int32> (outs.size()));
    };

    for (const auto& [ins, outs] : std::vector<std::pair<Buses, Buses>> { { { Arr::kMono }, { Arr::kMono } },
             { { Arr::kMono }, { Arr::kStereo } }, { { Arr::kStereo }, { Arr::k51 } }, { { Arr::k51 }, { Arr::k51 } },
             { { Arr::kEmpty }, { Arr::kStereo } }, { { Arr::kStereo, Arr::kStereo }, { Arr::kStereo } }, { {}, {} },
             { { ~Vst::SpeakerArrangement {} }, { Arr::kStereo } } })
    {
        EXPECT_NE (set (ins, outs), kResultTrue);

        for (const auto direction : { Vst::kInput, Vst::kOutput })
        {
            Vst::SpeakerArrangement now = 0;
            EXPECT_EQ (instance.processor->getBusArrangement (direction, 0, now), kResultTrue);
            EXPECT_EQ (now, Arr::kStereo);
        }
    }

    EXPECT_EQ (set ({ Arr::kStereo }, { Arr::kStereo }), kResultTrue);
    instance.start (48000.0, 512);
    EXPECT_NE (set ({ Arr::kMono }, { Arr::kMono }), kResultTrue) << "while it runs";
    EXPECT_GT (peak (NoiseBlocks (instance, 4096, 512).right), 0.1);
}

TEST (Conformance, ParameterTextsComeBackAndShortNamesDiffer)
{
    Vst3Module module;
    Vst3Instance instance (module);
    auto& controller = *instance.controller;
    const auto parameters = parametersOf (controller);
    ASSERT_EQ (parameters.size(), numParameters);
    std::set<juce::String> shortNames; // all that a control surface shows
    const auto read = [] (const Vst::String128& text) {
        return juce::String (
            juce::CharPointer_UTF16 (reinterpret_cast<const juce::CharPointer_UTF16::CharType*> (text)));
    };

    for (const auto& info : parameters)
    {
        shortNames.insert (read (info.shortTitle));
        EXPECT_LE (read (info.shortTitle).length(), 8);

        for (int step = 0; step <= 20; ++step)
        {
            Vst::String128 text {}, again {};
            Vst::ParamValue value = -1.0;
            EXPECT_EQ (controller.getParamStringByValue (info.id, step / 20.0, text), kResultTrue);
            EXPECT_EQ (controller.getParamValueByString (info.id, text, value), kResultTrue);
            EXPECT_TRUE (value >= 0.0 && value <= 1.0);
            EXPECT_EQ (controller.getParamStringByValue (info.id, value, again), kResultTrue);
            EXPECT_EQ (read (text), read (again));
        }
    }

    EXPECT_EQ (shortNames.size(), numParameters);
}

TEST (Conformance, AStateComesBackToTheBitFromAnotherThreadToo)
{
    Vst3Module module;
    Vst3Instance first (module), second (module);
    first.start (48000.0, 512);
    second.start (48000.0, 512);
    first.set ({ { "link", 0.0 } });
    Settings odd { { "breakMode", 1.0 } };

    for (const auto* id : { "sub", "40hzR", "airGain", "airBandR", "trim", "inGain1" })
        odd.emplace_back (id, 0.123456789);

    first.set (odd);
    const auto initial = second.save(), state = first.save();
    EXPECT_NE (state, initial);

    // While the audio runs, another thread saves and restores.
    std::atomic<bool> stop { false };
    std::thread background (
        [&]
        {
            for (int i = 0; ! stop; ++i)
            {
                EXPECT_EQ (second.restore (i % 2 == 0 ? state : initial), kResultOk);
                EXPECT_EQ (second.save(), i % 2 == 0 ? state : initial);
            }
        });

    for (int i = 0; i < 100; ++i)
        EXPECT_TRUE (allFinite (NoiseBlocks (second, 512, 512).left));

    stop = true;
    background.join();

    // What is no state is refused and changes nothing.
    EXPECT_EQ (second.restore (state), kResultOk);

    for (const auto& bad : std::vector<std::vector<char>> { {}, { 1 }, std::vector<char> (1000, '<'),
             { state.begin(), state.begin() + static_cast<std::ptrdiff_t> (state.size() / 2) } })
        second.restore (bad);

    EXPECT_EQ (second.save(), state);
    second.stop();
    second.start (48000.0, 512);
    Vst3Instance fresh (module);
    fresh.restore (state);
    fresh.start (48000.0, 512);
    EXPECT_EQ (NoiseBlocks (second, 8192, 512), NoiseBlocks (fresh, 8192, 512));
}

TEST (Conformance, AStateThatEndsWithAFalseLengthIsReadToItsEnd)
{
    Vst3Module module;
    Vst3Instance instance (module);
    instance.start (48000.0, 512);
    const auto initial = instance.save();
    instance.set ({ { "trim", 0.25 } });
    const auto state = instance.save();

    // The framework's wrapper puts a length, which is 0, and a name behind every state.
    const std::string name = "JUCEPrivateData";
    const auto end = state.size() - name.size();
    ASSERT_EQ (std::string (state.begin() + static_cast<std::ptrdiff_t> (end), state.end()), name);

    for (const auto length : { std::uint64_t { 1 } << 31, ~std::uint64_t { 0 } << 31, ~std::uint64_t { 0 } })
    {
        auto damaged = state;
        std::memcpy (damaged.data() + end - sizeof (length), &length, sizeof (length));
        instance.restore (initial);
        instance.restore (damaged);
        EXPECT_TRUE (instance.save() == state) << length;
    }
}

TEST (Conformance, InstancesInTheirOwnThreadsDoNotMeet)
{
    Vst3Module module;
    constexpr int count = 4;
    std::vector<std::unique_ptr<Vst3Instance>> instances;

    for (int i = 0; i < count; ++i)
        instances.push_back (std::make_unique<Vst3Instance> (module));

    std::vector<std::vector<float>> outputs (count);
    std::vector<std::thread> threads;

    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back (
            [&, i]
            {
                instances[i]->start (48000.0, 128);
                instances[i]->set ({ { "trim", i % 2 == 0 ? 0.25 : 0.75 } });
                outputs[i] = NoiseBlocks (*instances[i], 48000, 128).left;
                instances[i]->stop();
                instances[i].reset();
            });

    for (auto& thread : threads)
        thread.join();

    EXPECT_EQ (outputs[0], outputs[2]);
    EXPECT_EQ (outputs[1], outputs[3]);
    EXPECT_NEAR (rmsDb (outputs[1]) - rmsDb (outputs[0]), 12.0, 0.01);
}

} // namespace
} // namespace kestreleq::test
