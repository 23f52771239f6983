#pragma once

#include "engine/dsp/BreakProcessor.h"
#include "engine/dsp/EngineParameters.h"
#include "engine/dsp/ToneBank.h"
#include "engine/dsp/simd/Kernels.h"

#include <array>
#include <cstddef>

namespace kestreleq::dsp
{

/** The equaliser: two lanes, each with its tone bank, break stage, output filter and gains, around an optional mid/side
    transform. Audio thread only, but for prepare, which may not overlap anything else. Nothing here allocates.

    The engine keeps a plan and a state, plain arrays over both lanes, and leaves the samples to the fastest form of the
    inner loops that the machine has; all forms agree to the last bit. */
class EqEngine
{
public:
    /** Another form of the inner loops than the best one is for tests. */
    explicit EqEngine (const simd::Kernels& kernelsToUse = simd::bestKernels());

    /** Designs every filter for a sample rate in Hz and clears all filter state. */
    void prepare (double sampleRate);

    /** Takes the settings for the blocks that follow. Only what differs from the last settings is computed. */
    void setParameters (const EngineParameters& next);

    /** Processes numSamples of both channels in place. Does nothing before prepare. A lane that is
        bypassed stays untouched, apart from the mid/side transform; all other output is finite. */
    void process (float* left, float* right, int numSamples);

    /** The tone bank, to ask for its response. */
    const ToneBank& getToneBank() const { return toneBank; }

private:
    void applyLane (std::size_t lane, const LaneParameters& next);
    void writeLane (std::size_t lane);
    void writeGains (std::size_t lane);
    void reset();
    void runChunk (const simd::BreakChunk* breakChunk, float* left, float* right, int numSamples);

    const simd::Kernels& kernels;
    simd::EnginePlan plan {};
    simd::EngineState state {};
    EngineParameters parameters;
    ToneBank toneBank;
    BreakProcessor breakProcessor;
    BiquadCoefficients outputFilter;
    std::array<double, numLanes> inputGains { 1.0, 1.0 };
    std::array<double, numLanes> outputGains { 1.0, 1.0 };
    double trimGain = 1.0;
    bool resetPending = false;
    bool prepared = false;
};

} // namespace kestreleq::dsp
