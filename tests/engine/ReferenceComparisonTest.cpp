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
        parameters.set (id, value);
    }

    /** The worse channel's greatest difference over the reference's peak, in dB. */
    double difference (Stereo signal)
    {
        auto left = widened (signal[0]);
        auto right = widened (signal[1]);
        rig.process (signal, blockSize);

        for (int start = 0, total = static_cast<int> (left.size()); start < total; start += blockSize)
            reference.process (
                parameters, left.data() + start, right.data() + start, std::min (blockSize, total - start));

        return std::max (differenceDb (signal[0], left), differenceDb (signal[1], right));
    }

    ProcessorRig rig;
    ReferenceParameters parameters;
    ReferenceEq reference;
    int blockSize;
};

class RandomSettings : public testing::TestWithParam<std::tuple<double, int, unsigned>>
{
};

TEST_P (RandomSettings, SoundLikeThePlainReference)
{
    const auto [rate, block, seed] = GetParam();
    std::mt19937 random (seed);
    Pair pair (rate, block);

    for (unsigned segment = 0; segment < 6; ++segment)
    {
        for (const auto& info : parameterTable)
        {
            const auto value = static_cast<float> (random() % 1025) / 1024.0f;

            // Bypasses are rare, or there would be little to hear.
            const bool isBypass = info.text == TextKind::bypassState;
            pair.set (info.id, isBypass ? (value > 0.85f ? 1.0f : 0.0f) : value);
        }

        const auto length = static_cast<int> (rate / 8.0);
        const Stereo signal { musicalMix (seed + segment, rate, length), whiteNoise (seed + segment, length, 0.3) };
        EXPECT_LT (pair.difference (signal), -110.0) << "segment " << segment;
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
        const auto total = static_cast<int> (4.0 * rate);
        const Stereo signal { musicalMix (5, rate, total), whiteNoise (5, total, 0.3) };
        Stereo actual { std::vector<float>(), std::vector<float>() };
        std::array<std::vector<double>, 2> expected;

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
            Stereo block;

            for (std::size_t i = 0; i < 2; ++i)
                block[i].assign (signal[i].begin() + start, signal[i].begin() + start + length);

            auto left = widened (block[0]), right = widened (block[1]);
            pair.rig.process (block, length);
            pair.reference.process (pair.parameters, left.data(), right.data(), length);

            for (std::size_t i = 0; i < 2; ++i)
            {
                actual[i].insert (actual[i].end(), block[i].begin(), block[i].end());
                const auto& reference = i == 0 ? left : right;
                expected[i].insert (expected[i].end(), reference.begin(), reference.end());
            }

            start += length;
        }

        EXPECT_LT (differenceDb (actual[0], expected[0]), -110.0) << rate;
        EXPECT_LT (differenceDb (actual[1], expected[1]), -110.0) << rate;
    }
}

TEST (ReferenceComparison, AFullBoostSweepKeepsTheNoiseDown)
{
    for (const auto rate : { 48000.0, 192000.0 })
    {
        Pair pair (rate, 512);
        for (const auto* id : { "sub", "40hz", "160hz", "650hz", "2500hz", "airGain", "airBand" })
            pair.set (id, 1.0f);

        const auto sweep = logSweep (20.0, 20000.0, rate, static_cast<int> (5.0 * rate), 0.5);
        EXPECT_LT (pair.difference ({ sweep, sweep }), -120.0) << rate;
    }
}

TEST (ReferenceComparison, BreakModeKeepsSlowTurningPointsExact)
{
    // A rounding to single precision anywhere before the waveshapers shows here, and hardly anywhere else.
    for (const auto rate : { 44100.0, 192000.0 })
    {
        Pair pair (rate, 512);
        for (const auto* id : { "sub", "40hz", "160hz", "650hz", "2500hz", "breakMode" })
            pair.set (id, 1.0f);

        pair.set ("inGain1", 0.6f);
        const auto length = static_cast<int> (rate);
        const auto low = sine (50.0, rate, length, 0.5);
        EXPECT_LT (pair.difference ({ low, logSweep (20.0, 20000.0, rate, length, 0.5) }), -110.0) << rate;
    }
}

TEST (ReferenceComparison, BlockSizesDoNotMatter)
{
    for (const bool breakMode : { false, true })
    {
        ProcessorRig steady (48000.0, 4096), varied (48000.0, 256);
        std::mt19937 random (4);
        std::vector<int> sizes (40);
        std::generate (sizes.begin(), sizes.end(), [&] { return 1 + static_cast<int> (random() % 4096); });

        for (auto* rig : { &steady, &varied })
        {
            rig->set ("link", 0.0f);
            rig->set ("msMode", 1.0f);
            rig->set ("breakMode", breakMode ? 1.0f : 0.0f);
            rig->set ("sub", 0.9f);
            rig->set ("650hzR", 0.1f);
            rig->set ("airGain", 0.7f);
            rig->set ("airBand", 0.5f);
        }

        Stereo first { whiteNoise (1, 48000, 0.5), whiteNoise (2, 48000, 0.5) };
        auto second = first;
        steady.process (first, 4096);
        varied.process (second, sizes);
        EXPECT_EQ (first, second);
    }
}

} // namespace
} // namespace kestreleq::test
