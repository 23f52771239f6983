#include "engine/dsp/EqEngine.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kestreleq::test
{
namespace
{

using Channels = std::array<std::vector<float>, 2>;

/** Every band up, air on, everything moving. */
dsp::EngineParameters busySettings()
{
    dsp::EngineParameters settings;
    settings.breakMode = true;
    settings.link = false;

    for (auto& lane : settings.lanes)
    {
        lane.bands = { 1.0f, 0.9f, 0.8f, 0.7f, 0.6f };
        lane.airAmount = 1.0f;
        lane.airStep = 0.75f;
    }

    return settings;
}

struct EngineRig
{
    explicit EngineRig (const dsp::EngineParameters& s, double sampleRate = 48000.0)
        : settings (s)
    {
        engine.prepare (sampleRate);
    }

    Channels run (Channels signal)
    {
        engine.setParameters (settings);
        engine.process (signal[0].data(), signal[1].data(), static_cast<int> (signal[0].size()));
        return signal;
    }

    dsp::EngineParameters settings;
    dsp::EqEngine engine;
};

const Channels silence { std::vector<float> (2048), std::vector<float> (2048) };
const Channels noise { whiteNoise (1, 2048, 0.5), whiteNoise (2, 2048, 0.5) };

// Released in silence, neither the bypass nor a lane's lets out what sounded before it; nor does the other lane forget.
TEST (EngineState, IsClearedByReleasingABypass)
{
    for (const bool laneOnly : { false, true })
    {
        EngineRig rig (busySettings());
        rig.run (noise);
        auto& bypass = laneOnly ? rig.settings.lanes[0].bypass : rig.settings.bypass;
        bypass = true;
        rig.run (noise);
        EXPECT_EQ (rig.run (noise)[0], noise[0]);
        rig.run (silence);
        bypass = false;
        const auto output = rig.run (silence);
        EXPECT_EQ (peak (output[0]), 0.0);
        EXPECT_EQ (peak (output[1]) > 0.0, laneOnly);

        // Nor is the distortion's gate open: it sounds as if the lane had been bypassed from the start.
        auto settings = busySettings();
        (laneOnly ? settings.lanes[0].bypass : settings.bypass) = true;
        EngineRig always (settings);

        for (auto* each : { &rig, &always })
        {
            (laneOnly ? each->settings.lanes[0].bypass : each->settings.bypass) = true;
            each->run (noise);
            each->run (noise);
            (laneOnly ? each->settings.lanes[0].bypass : each->settings.bypass) = false;
        }

        EXPECT_EQ (rig.run (noise)[0], always.run (noise)[0]);
    }
}

TEST (EngineState, BadSamplesLeaveNoTrace)
{
    const auto infinity = std::numeric_limits<float>::infinity();
    const auto greatest = std::numeric_limits<float>::max();
    const Channels longSilence { std::vector<float> (96000), std::vector<float> (96000) };

    for (const bool midSide : { false, true })
    {
        auto settings = busySettings();
        settings.midSide = midSide;
        settings.trim = 1.0f;
        EngineRig clean (settings);
        clean.run (longSilence);
        const auto expected = clean.run (noise)[0];

        for (const auto bad : { std::numeric_limits<float>::quiet_NaN(), infinity, -infinity, greatest })
        {
            EngineRig rig (settings);
            auto signal = noise;
            signal[0][1000] = bad;
            const auto output = rig.run (signal);
            EXPECT_TRUE (std::isfinite (peak (output[0])) && std::isfinite (peak (output[1]))) << bad;

            // Some time after, the engine sounds like one that never saw it.
            rig.run (longSilence);
            const auto after = rig.run (noise)[0];
            EXPECT_LT (differenceDb (after, expected), -120.0) << bad;
        }
    }

    // A not-a-number silences its own sample only; the filters start anew with the next one.
    dsp::EngineParameters plain;
    plain.lanes[0].bands = busySettings().lanes[0].bands;
    plain.lanes[0].airStep = 0.0f;
    EngineRig rig (plain), fresh (plain);
    auto signal = noise;
    signal[0][1000] = std::numeric_limits<float>::quiet_NaN();
    const auto output = rig.run (signal)[0];
    EXPECT_EQ (output[1000], 0.0f);
    const Channels rest { { { noise[0].begin() + 1001, noise[0].end() },
        { noise[1].begin() + 1001, noise[1].end() } } };
    EXPECT_EQ (std::vector<float> (output.begin() + 1001, output.end()), fresh.run (rest)[0]);
}

TEST (EngineState, IgnoresGainsThatAreNoNumbers)
{
    const auto nan = std::numeric_limits<float>::quiet_NaN();
    dsp::EngineParameters settings, odd;
    odd.trim = odd.lanes[0].bands[2] = nan;
    odd.lanes[0].inputGain = odd.lanes[0].outputGain = odd.lanes[0].airStep = odd.lanes[0].airAmount = nan;

    // A band falls to the bottom; the air amount holds its value, the step falls to the third setting, where it is.
    settings.lanes[0].bands[2] = 0.0f;
    EXPECT_EQ (EngineRig (odd).run (noise)[0], EngineRig (settings).run (noise)[0]);
}

TEST (EngineState, PreparedAgainItIsAsNew)
{
    EngineRig rig (busySettings(), 96000.0);
    rig.run (noise);
    rig.engine.prepare (48000.0);
    EXPECT_EQ (rig.run (noise), EngineRig (busySettings()).run (noise));
}

TEST (EngineState, ALaneFadesWhateverTheOtherDoes)
{
    auto settings = busySettings();
    EngineRig one (settings);
    settings.lanes[0].bypass = true;
    EngineRig other (settings);

    for (const auto value : { 0.2f, 0.9f })
    {
        for (auto* rig : { &one, &other })
            rig->settings.lanes[1].bands[2] = value;

        EXPECT_EQ (one.run (noise)[1], other.run (noise)[1]) << value;
    }
}

TEST (EngineState, TheAirDistortsAboveATenthAndNotAtIt)
{
    for (const auto amount : { 0.1f, std::nextafter (0.1f, 1.0f) })
    {
        dsp::EngineParameters clean;
        clean.lanes[0].airAmount = clean.lanes[1].airAmount = amount;
        auto broken = clean;
        broken.breakMode = true;
        EXPECT_EQ (EngineRig (clean).run (noise) == EngineRig (broken).run (noise), amount == 0.1f);
    }
}

using EveryRate = testing::TestWithParam<double>;
} // namespace

TEST_P (EveryRate, StaysBoundedAndFreeOfDrift)
{
    const auto rate = GetParam();
    EngineRig rig (busySettings(), rate);
    const auto seconds = static_cast<std::size_t> (rate);

    Channels burst { whiteNoise (8, static_cast<int> (seconds / 4)), whiteNoise (9, static_cast<int> (seconds / 4)) };
    EXPECT_LT (peak (rig.run (burst)[0]), 100.0);

    // After three seconds of silence even the lowest filter has died away.
    Channels threeSeconds { std::vector<float> (3 * seconds), std::vector<float> (3 * seconds) };
    const auto output = rig.run (threeSeconds);
    EXPECT_LT (peak (std::span (output[0]).last (seconds / 4)), 1e-9);
    EXPECT_LT (peak (std::span (output[1]).last (seconds / 4)), 1e-9);
}

INSTANTIATE_TEST_SUITE_P (EngineState, EveryRate,
    testing::Values (8000.0, 11025.0, 44100.0, 48000.0, 88200.0, 96000.0, 176400.0, 192000.0, 352800.0, 384000.0,
        705600.0, 768000.0));

} // namespace kestreleq::test
