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

    /** Processes numSamples of both channels in place. Does nothing before prepare. A lane that is
        bypassed stays untouched, apart from the mid/side transform; all other output is finite. */
    void process (float* left, float* right, int numSamples);

    /** A lane's tone bank, to ask for its response. */
    const ToneBank& getToneBank (std::size_t lane) const { return lanes[lane].toneBank; }

private:
    struct Lane
    {
        ToneBank toneBank;
        BreakProcessor breakProcessor;
        BiquadSection outputFilter;
        double inputGain = 1.0;
        double outputGain = 1.0;

        void prepare (double sampleRate);
        void apply (const LaneParameters& next);
        void reset();

        /** Input gain and tone bank. */
        void processInput (double* samples, int numSamples, bool breakMode);

        /** Output filter, output gain and trim. */
        void processOutput (double* samples, int numSamples, double trimGain);
    };

    // Samples stay in double precision from end to end: the break stage's waveshapers turn one rounding before them
    // into an error of -57 dB where a slow signal turns round. A chunk is what fits on the stack and in the cache.
    static constexpr int chunkSize = 64;

    void processChunk (const std::array<float*, numLanes>& channels, int numSamples);

    EngineParameters parameters;
    std::array<Lane, numLanes> lanes;
    double trimGain = 1.0;
    bool resetPending = false;
    bool prepared = false;
};

} // namespace kestreleq::dsp
