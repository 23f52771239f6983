#pragma once

#include "engine/dsp/Crossfade.h"
#include "engine/dsp/SignalPath.h"
#include "engine/dsp/ToneBank.h"

#include <array>
#include <cstddef>

namespace kestreleq::dsp
{

/** The equaliser: two lanes, each with its tone bank, break stage, output filter and gains, around an optional mid/side
    transform. Audio thread only, but for prepare, which may not overlap anything else. Nothing here allocates.

    The engine keeps a plan and a state, plain arrays over both lanes, and leaves the samples to the fastest form of the
    inner loops that the machine has; all forms agree to the last bit. When settings change, it goes on by the old ones
    beside the new ones while the output goes over. */
class EqEngine
{
public:
    /** Another form of the inner loops than the best one is for tests. */
    explicit EqEngine (const simd::Kernels& kernelsToUse = simd::bestKernels());

    /** Designs every filter for a sample rate in Hz and clears all filter state. The next settings act at once. */
    void prepare (double sampleRate);

    /** Clears all filter state and ends what is under way. The next settings act at once. */
    void reset();

    /** The settings for the blocks that follow. They are taken at the first block that begins after the last change has
        been completed. */
    void setParameters (const EngineParameters& next);

    /** Processes numSamples of both channels in place, a block of the host. Does nothing before prepare. A lane that is
        bypassed stays untouched, apart from the mid/side transform; all other output is finite. */
    void process (float* left, float* right, int numSamples);

    /** The tone bank, to ask for its response. */
    const ToneBank& getToneBank() const { return toneBank; }

private:
    void takeSettings (int blockLength);
    void applySettings();
    void applyLane (std::size_t lane, const LaneParameters& next);
    void writeLane (std::size_t lane);
    void writeGains (std::size_t lane);
    void processFading (float* left, float* right, int numSamples);

    const simd::Kernels& kernels;
    SignalPath path;
    SignalPath outgoing; // that of the settings before, while the output goes over
    Crossfade fade;
    BreakProcessor::GateRows gateRows;
    EngineParameters parameters; // in force
    EngineParameters wanted;
    ToneBank toneBank;
    BiquadCoefficients outputFilter;
    std::array<double, numLanes> inputGains { 1.0, 1.0 };
    std::array<double, numLanes> outputGains { 1.0, 1.0 };
    double trimGain = 1.0;
    bool isNew = false;  // there are settings wanted that have not been looked at
    bool isFresh = true; // nothing has sounded yet
    bool prepared = false;
};

} // namespace kestreleq::dsp
