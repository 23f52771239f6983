#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <limits>

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

namespace kestreleq::test
{
namespace
{

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

        for (int second = 0; second < 6; ++second)
        {
            audio = { std::vector<float> (48000), std::vector<float> (48000) };
            const DenormalWatch watch;
            engine.process (audio[0].data(), audio[1].data(), 48000);
            EXPECT_FALSE (watch.sawOne()) << "in second " << second << (breakMode ? ", break mode" : "");
        }
    }
}

#endif

TEST (Denormals, TheHostsSettingStaysAsItWas)
{
    ProcessorRig rig;
    Stereo audio { whiteNoise (1, 512), whiteNoise (2, 512) };
    rig.process (audio);
    volatile auto tiny = std::numeric_limits<float>::min();
    EXPECT_GT (tiny / 2.0f, 0.0f);
}

} // namespace
} // namespace kestreleq::test
