#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

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

#if defined(__SSE2__)

/** Whether an operation has met a denormal, or made one, while this lived. With denormals left on: a plug-in's block
    has them off, but then nothing tells. */
class DenormalWatch
{
public:
    DenormalWatch() { _mm_setcsr (saved & ~(flags | flushing)); }

    ~DenormalWatch() { _mm_setcsr (saved); }

    DenormalWatch (const DenormalWatch&) = delete;
    DenormalWatch& operator= (const DenormalWatch&) = delete;

    bool sawOne() const { return (_mm_getcsr() & flags) != 0; }

private:
    static constexpr unsigned flags = 0x0012;    // denormal operand, underflow
    static constexpr unsigned flushing = 0x8040; // flush to zero, denormals are zero
    const unsigned saved = _mm_getcsr();
};

TEST (DenormalWatch, SeesOne)
{
    const DenormalWatch watch;
    volatile auto tiny = std::numeric_limits<float>::min();
    EXPECT_FALSE (watch.sawOne());
    tiny = tiny * 0.3f;
    EXPECT_TRUE (watch.sawOne());
}

// The filters' constant alone keeps them from dying down into denormals, without the processor's help.
TEST (EngineDenormals, SilenceAfterLoudAudioMeetsNone)
{
    for (const bool breakMode : { false, true })
    {
        dsp::EqEngine engine;
        engine.prepare (48000.0);
        dsp::EngineParameters settings;
        settings.breakMode = breakMode;

        for (auto& lane : settings.lanes)
        {
            lane.bands.fill (0.9f);
            lane.airAmount = 0.8f;
        }

        engine.setParameters (settings);
        Stereo audio { whiteNoise (1, 48000, 0.9), whiteNoise (2, 48000, 0.9) };
        engine.process (audio[0].data(), audio[1].data(), 48000);

        for (int second = 0; second < 20; ++second)
        {
            audio = { std::vector<float> (48000), std::vector<float> (48000) };
            const DenormalWatch watch;
            engine.process (audio[0].data(), audio[1].data(), 48000);
            EXPECT_FALSE (watch.sawOne()) << "in second " << second << (breakMode ? ", break mode" : "");
        }
    }
}

#endif

INSTANTIATE_TEST_SUITE_P (Programs, Denormals, testing::Values (0, 4, 5));

} // namespace kestreleq::test
