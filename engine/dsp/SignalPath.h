#pragma once

#include "engine/dsp/BreakProcessor.h"
#include "engine/dsp/simd/Kernels.h"

#include <cstddef>

namespace kestreleq::dsp
{

/** The whole way of the audio under one setting: what is to be done, and what the filters remember. A copy of it goes
   on by the old settings while another takes the new ones. The audio thread's alone. */
struct SignalPath
{
    simd::EnginePlan plan {};
    simd::EngineState state {};
    BreakProcessor breakStage;
    bool bypass = false;
    bool breakMode = false;

    /** Whether a channel (0 or 1) comes out as it went in, to the last bit. */
    bool passes (std::size_t channel) const { return bypass || (plan.bypass[channel] && ! plan.midSide); }

    /** Puts everything at rest. */
    void clear();

    /** Puts a lane's filters and break stage at rest. */
    void clearLane (std::size_t lane);

    /** Processes numSamples of both channels in place. The gate rows are room to work in. */
    void process (
        const simd::Kernels& kernels, BreakProcessor::GateRows& gateRows, float* left, float* right, int numSamples);
};

} // namespace kestreleq::dsp
