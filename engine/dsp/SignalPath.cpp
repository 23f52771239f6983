#include "engine/dsp/SignalPath.h"

#include "engine/dsp/LaneMemory.h"

#include <algorithm>

namespace kestreleq::dsp
{

void SignalPath::clear()
{
    state = {};
    breakStage.reset (state.breaking);
}

void SignalPath::clearLane (std::size_t lane)
{
    clearLaneMemory (state, lane);
    breakStage.resetLane (state.breaking, lane);
}

void SignalPath::process (
    const simd::Kernels& kernels, BreakProcessor::GateRows& gateRows, float* left, float* right, int numSamples)
{
    if (passes (0) && passes (1))
        return;

    while (numSamples > 0)
    {
        auto length = std::min (simd::chunkSize, numSamples);
        simd::BreakChunk breakChunk;
        const simd::BreakChunk* used = nullptr;

        if (breakMode)
        {
            breakChunk = breakStage.begin (plan, state.breaking, gateRows, length);
            used = &breakChunk;
        }

        if (! kernels.process (plan, state, used, left, right, length))
            simd::scalarKernels().process (plan, state, used, left, right, length);

        left += length;
        right += length;
        numSamples -= length;
    }
}

} // namespace kestreleq::dsp
