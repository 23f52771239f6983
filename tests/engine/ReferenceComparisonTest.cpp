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
