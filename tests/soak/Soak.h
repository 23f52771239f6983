#pragma once

#include "tests/soak/SoakSignal.h"
#include "tests/support/ProcessorRig.h"

#include <cstdint>
#include <random>
#include <vector>

namespace kestreleq::test
{

/** One plug-in through hours of what hosts do, one call after the other and the same calls for the same seed. */
class Soak
{
public:
    explicit Soak (std::uint32_t seed);

    /** Goes on for so many seconds of audio. Throws std::runtime_error when the output is wrong. */
    void run (double seconds);

    struct Report
    {
        double seconds = 0.0; // of audio
        std::uint64_t blocks = 0;
        std::uint64_t hash = 0xcbf29ce484222325u; // of every sample that came out
        float peak = 0.0f;                        // where the input was within full scale
    };

    const Report& report() const { return done; }

private:
    int upTo (int count) { return static_cast<int> (random() % static_cast<unsigned> (count)); }

    bool oneIn (int count) { return upTo (count) == 0; }

    void prepare();
    void disturb();
    void automate (const ParameterInfo& info);
    void disturbState();
    void processBlock();
    void check (const Stereo& in, const juce::AudioBuffer<float>& out);

    std::mt19937 random;
    SoakSignal signal;
    ProcessorRig rig;
    std::vector<juce::MemoryBlock> states;
    std::vector<float> curve;
    double rate = 48000.0;
    int preparedBlock = 512;
    bool hugeSincePrepare = false;
    double sinceBypass = 1.0; // seconds since a bypass was set
    Report done;
};

/** Whether an output sample may be what it is. Only a bypassed lane hands on what is not finite, as it came. */
bool isFaulty (float out, bool finiteIn, bool anyBypass, bool withinFullScale);

} // namespace kestreleq::test
