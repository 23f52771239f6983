#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>

namespace kestreleq::test
{
namespace
{

constexpr int block = 512;

double nanosecondsOf (ProcessorRig& rig, Stereo& audio)
{
    const auto start = std::chrono::steady_clock::now();
    rig.process (audio, block);
    return std::chrono::duration<double, std::nano> (std::chrono::steady_clock::now() - start).count();
}

class Denormals : public testing::TestWithParam<int>
{
protected:
    Denormals()
    {
        rig.processor.setCurrentProgram (GetParam());
        rig.set ("airGain", 1.0f);
    }

    ProcessorRig rig { 48000.0, block };
    const Stereo noise { whiteNoise (1, block, 0.9), whiteNoise (2, block, 0.9) };
};

} // namespace

// Over ten seconds of dying filters. The least time of several blocks stands for all, as on a busy machine only that is
// the program's own.
TEST_P (Denormals, SilenceAfterLoudAudioCostsNoMoreThanNoise)
{
    const auto leastOf = [&] (const Stereo& input)
    {
        auto least = std::numeric_limits<double>::max();

        for (int i = 0; i < 20; ++i)
        {
            auto audio = input;
            least = std::min (least, nanosecondsOf (rig, audio));
        }

        return least;
    };

    const auto loud = std::min (leastOf (noise), leastOf (noise));
    auto most = 0.0;

    for (int i = 0; i < 47; ++i)
        most = std::max (most, leastOf ({ std::vector<float> (block), std::vector<float> (block) }));

    RecordProperty ("silenceOverNoise", std::to_string (most / loud));
    EXPECT_LT (most, 2.0 * loud);
}

// Exactly, and on every processor: what comes out of a dying filter is never a denormal, whatever the host's own
// setting, which is left as it was.
TEST_P (Denormals, NoneComesOut)
{
    auto audio = noise;
    rig.process (audio, block);

    for (int i = 0; i < 1000; ++i)
    {
        audio = { std::vector<float> (block), std::vector<float> (block) };
        rig.process (audio, block);

        for (const auto& channel : audio)
            for (const auto sample : channel)
                ASSERT_NE (std::fpclassify (sample), FP_SUBNORMAL) << i;
    }

    volatile auto tiny = std::numeric_limits<float>::min();
    EXPECT_EQ (std::fpclassify (tiny / 2.0f), FP_SUBNORMAL) << "the host's setting has changed";
}

INSTANTIATE_TEST_SUITE_P (Programs, Denormals, testing::Values (0, 4, 5));

} // namespace kestreleq::test
