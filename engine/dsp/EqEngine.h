#pragma once

#include "engine/dsp/Biquad.h"
#include "engine/dsp/BreakProcessor.h"
#include "engine/dsp/EngineParameters.h"
#include "engine/dsp/ToneBank.h"

#include <array>

namespace kestreleq::dsp
{

/** The equaliser: two lanes, each with its tone bank, break stage, output filter and gains, around an optional mid/side
    transform. Audio thread only, but for prepare, which may not overlap anything else. Nothing here allocates. */
class EqEngine
{
public:
    EqEngine();

    /** Designs every filter for a sample rate in Hz and clears all filter state. */
    void prepare (double sampleRate);

    bool isPrepared() const { return prepared; }

    /** Takes the settings for the blocks that follow. Only what differs from the last settings is computed. */
    void setParameters (const EngineParameters& next);

    /** Processes numSamples of both channels in place. Does nothing before prepare. The output is always finite, except
        in lanes that are bypassed, which stay untouched. */
    void process (float* left, float* right, int numSamples);

    /** A lane's tone bank, to ask for its response. */
    const ToneBank& getToneBank (std::size_t lane) const { return lanes[lane].toneBank; }

private:
    struct Lane
    {
        ToneBank toneBank;
        BreakProcessor breakProcessor;
        BiquadSection outputFilter;
        float inputGain = 1.0f;
        float outputGain = 1.0f;

        void prepare (double sampleRate);
        void apply (const LaneParameters& next);
        void reset();
    };

    EngineParameters parameters;
    std::array<Lane, numLanes> lanes;
    float trimGain = 1.0f;
    bool resetPending = false;
    bool prepared = false;
};

} // namespace kestreleq::dsp
