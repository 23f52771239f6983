#include "tests/support/ProcessorRig.h"
#include "tests/support/ReferenceEq.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace kestreleq::test
{
namespace
{

/** The processor and the plain reference side by side, set alike. */
struct Pair
{
    Pair (double sampleRate, int block)
        : rig (sampleRate, block),
          reference (sampleRate),
          blockSize (block)
    {
    }

    void set (const char* id, float value)
    {
        rig.set (id, value);

        for (const auto& info : parameterTable) // what links have copied, too
            parameters.set (info.id, rig.get (info.id));
    }

    /** A block of the signal through both. */
    void play (const Stereo& signal, int start, int length)
    {
        Stereo block;
        std::array<std::vector<double>, 2> exact;

        for (std::size_t i = 0; i < 2; ++i)
            exact[i] = widened (block[i] = { signal[i].begin() + start, signal[i].begin() + start + length });

        rig.process (block, length);
        reference.process (parameters, exact[0].data(), exact[1].data(), length);

        for (std::size_t i = 0; i < 2; ++i)
        {
            actual[i].insert (actual[i].end(), block[i].begin(), block[i].end());
            expected[i].insert (expected[i].end(), exact[i].begin(), exact[i].end());
        }
    }

    /** All of it, in blocks. What was played before no longer counts. */
    void play (const Stereo& signal)
    {
        actual = {};
        expected = {};

        for (int start = 0, total = static_cast<int> (signal[0].size()); start < total; start += blockSize)
            play (signal, start, std::min (blockSize, total - start));
    }

    /** The worse channel's greatest difference in all that was played, over the reference's peak, in dB. */
    double difference() const
    {
        return std::max (differenceDb (actual[0], expected[0]), differenceDb (actual[1], expected[1]));
    }

    ProcessorRig rig;
    ReferenceParameters parameters;
    ReferenceEq reference;
    int blockSize;
    Stereo actual;
    std::array<std::vector<double>, 2> expected;
};

using RandomSettings = testing::TestWithParam<std::tuple<double, int, unsigned>>;
} // namespace

TEST_P (RandomSettings, SoundLikeThePlainReference)
{
    const auto [rate, block, run] = GetParam();
    const auto seed = 7 * static_cast<unsigned> (rate + block) + run; // other settings in every case
    std::mt19937 random (seed);
    Pair pair (rate, block);

    for (unsigned segment = 0; segment < 3; ++segment)
    {
        for (const auto& info : parameterTable)
        {
            const auto value = static_cast<float> (random() % 1025) / 1024.0f;

            // Bypasses are rare, or there would be little to hear.
            const bool isBypass = info.text == TextKind::bypassState;
            pair.set (info.id, isBypass ? (value > 0.85f ? 1.0f : 0.0f) : value);
        }

        const auto length = static_cast<int> (rate / 8.0);
        pair.play ({ musicalMix (seed + segment, rate, length), whiteNoise (seed + segment, length, 0.3) });
        EXPECT_LT (pair.difference(), -110.0) << "segment " << segment;
    }
}

INSTANTIATE_TEST_SUITE_P (ReferenceComparison, RandomSettings,
    testing::Combine (testing::Values (44100.0, 48000.0, 96000.0, 192000.0, 384000.0), testing::Values (1, 64, 1000),
        testing::Values (1u, 2u)));

// Blocks of all sizes, most with something new: a value drawn, a switch, a whole program; much of it while the last
// change is still on its way.
TEST (ReferenceComparison, SettingsInMotionSoundLikeThePlainReference)
{
    for (const auto rate : { 44100.0, 48000.0, 192000.0 })
    {
        Pair pair (rate, 4096);
        std::mt19937 random (static_cast<unsigned> (rate));
        const auto oneIn = [&] (unsigned n) { return random() % n == 0; };
        constexpr int total = 220000;
        const Stereo signal { musicalMix (5, rate, total), whiteNoise (5, total, 0.3) };

        for (int start = 0; start < total;)
        {
            for (const auto& info : parameterTable)
                if (oneIn (info.stepped ? 100 : 10))
                    pair.set (info.id, static_cast<float> (random() % 1025) / 1024.0f);

            // Nothing stays bypassed for long.
            if (oneIn (10))
                for (const auto* id : { "bypass", "laneABypass", "laneBBypass" })
                    pair.set (id, 0.0f);

            const auto size = oneIn (2) ? 1 + random() % 100 : 1 + random() % 3000;
            const auto length = std::min (static_cast<int> (size), total - start);
            pair.play (signal, start, length);
            start += length;
        }

        EXPECT_LT (pair.difference(), -110.0) << rate;
    }
}

// A rounding to single precision anywhere in the recursions, or before the waveshapers, shows here and hardly anywhere
// else: in a sweep under full boost, and at a slow sine's turning points.
TEST (ReferenceComparison, FullBoostKeepsTheNoiseDown)
{
    for (const auto rate : { 48000.0, 192000.0 })
        for (const bool breakMode : { false, true })
        {
            Pair pair (rate, 512);
            for (const auto* id : { "sub", "40hz", "160hz", "650hz", "2500hz", breakMode ? "breakMode" : "airGain" })
                pair.set (id, 1.0f);

            pair.set ("airBand", 1.0f);
            pair.set ("inGain1", breakMode ? 0.6f : 0.5f);
            const auto length = static_cast<int> ((breakMode ? 1.0 : 3.0) * rate);
            pair.play ({ sine (50.0, rate, length, 0.5), logSweep (20.0, 20000.0, rate, length, 0.5) });
            EXPECT_LT (pair.difference(), breakMode ? -110.0 : -120.0) << rate;
        }
}

} // namespace kestreleq::test
