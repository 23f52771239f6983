#pragma once

#include "engine/dsp/Dimensions.h"
#include "engine/dsp/SectionWriter.h"
#include "engine/dsp/simd/EngineData.h"

namespace kestreleq::dsp
{

/** Puts a chain of the break stage at rest. */
inline void clearBreakChain (simd::BreakMemory& memory, int chain)
{
    memory.shaped1[chain] = memory.shaped2[chain] = 0.0;

    for (auto& stage : memory.stages)
        clearSection (stage, chain);
}

/** Puts all filters of a lane at rest. */
inline void clearLaneMemory (simd::EngineState& state, std::size_t lane)
{
    for (std::size_t i = 0; i <= numBands; ++i)
    {
        clearSection (state.tone.bank, chainOf (lane, i));
        clearBreakChain (state.breaking, chainOf (lane, i));
    }

    clearSection (state.tone.output, static_cast<int> (lane));
}

/** Takes what the tone banks remember of left and right for mid and side, or back, as the audio is. Both lanes have the
    same bands, so this is what they would remember, had they heard that. */
inline void transformMidSide (simd::SectionMemory<simd::numChains>& bank, bool encode)
{
    const auto scale = encode ? 0.5 : 1.0;

    for (auto* const memory : { bank.first, bank.second })
    {
        for (int chain = 0; chain < simd::numChains; chain += 2)
        {
            const auto a = memory[chain], b = memory[chain + 1];
            memory[chain] = (a + b) * scale;
            memory[chain + 1] = (a - b) * scale;
        }
    }
}

} // namespace kestreleq::dsp
