#pragma once

// The engine's chunk for whichever registers were included before: both lanes' chains side by side, twelve in three
// times Four.

#include "engine/dsp/simd/Kernels.h"
#include "engine/dsp/simd/VectorBreak.h"
#include "engine/dsp/simd/VectorTransfer.h"

#include <string.h>

namespace kestreleq::dsp::simd
{
namespace
{

/** A chunk on its way through the engine, as pairs. */
struct ChunkBuffers
{
    alignas (32) double pairs[2 * chunkSize + width];
    alignas (32) double signals[numChains * chunkSize]; // what the break stage shapes
    alignas (32) double residues[width * chunkSize];    // what it adds, still in two halves
};

/** The tone bank's sections of both lanes. */
struct ToneSections
{
    Sections<Four> low, middle, high;

    explicit ToneSections (const SectionMemory<numChains>& memory)
        : low (Sections<Four>::load (memory, 0)),
          middle (Sections<Four>::load (memory, width)),
          high (Sections<Four>::load (memory, 2 * width))
    {
    }

    void store (SectionMemory<numChains>& memory) const
    {
        low.store (memory, 0);
        middle.store (memory, width);
        high.store (memory, 2 * width);
    }

    /** One sample of both lanes. Writes the chains' signals if there is somewhere to. */
    template <bool asleep, bool withSignals>
    Pair step (const EnginePlan& plan, const double* pair, double* signals)
    {
        const auto x = Four::repeat (pair);
        const auto chain = [&] (Sections<Four>& sections, int i)
        {
            const auto fromState = Four::load (plan.weight + i) * sections.first;

            if constexpr (withSignals)
                (Four::load (plan.weightedDirect + i) * x + fromState).store (signals + i);

            sections.template advance<asleep> (plan.tone, i, x, Four::load (plan.tone.antiDenormal + i));
            return fromState;
        };
        const auto sum = (chain (low, 0) + chain (middle, width)) + chain (high, 2 * width);
        return Pair::load (plan.direct) * x.low() + (sum.low() + sum.high());
    }
};

/** Tone bank, mid/side decoding, output filters and gains in one go. */
template <bool asleep, bool midSide>
void runClean (const EnginePlan& plan, EngineState& state, double* pairs, int numSamples)
{
    ToneSections tone (state.tone.bank);
    auto output = Sections<Pair>::load (state.tone.output, 0);

    for (auto* const end = pairs + 2 * numSamples; pairs != end; pairs += 2)
    {
        auto y = tone.step<asleep, false> (plan, pairs, nullptr);

        if constexpr (midSide)
            y = sumAndDifference (y);

        outputStep<asleep> (plan, output, y).store (pairs);
    }

    tone.store (state.tone.bank);
    output.store (state.tone.output, 0);
}

template <bool asleep>
void runTone (const EnginePlan& plan, EngineState& state, ChunkBuffers& buffers, int numSamples)
{
    ToneSections tone (state.tone.bank);

    for (int n = 0; n < numSamples; ++n)
    {
        auto* const pair = buffers.pairs + 2 * n;
        tone.step<asleep, true> (plan, pair, buffers.signals + numChains * n).store (pair);
        Four::zero().store (buffers.residues + width * n);
    }

    tone.store (state.tone.bank);
}

template <bool asleep, bool midSide>
void runOutput (const EnginePlan& plan, EngineState& state, ChunkBuffers& buffers, int numSamples)
{
    auto output = Sections<Pair>::load (state.tone.output, 0);

    for (int n = 0; n < numSamples; ++n)
    {
        auto* const pair = buffers.pairs + 2 * n;
        const auto residue = Four::load (buffers.residues + width * n);
        auto y = Pair::load (pair) + (residue.low() + residue.high());

        if constexpr (midSide)
            y = sumAndDifference (y);

        outputStep<asleep> (plan, output, y).store (pair);
    }

    output.store (state.tone.output, 0);
}

/** All of the engine between entering and leaving; without a chunk for it the break stage has nothing to do. */
template <bool asleep, bool midSide>
void run (const EnginePlan& plan, EngineState& state, const BreakChunk* chunk, ChunkBuffers& buffers, int numSamples)
{
    if (chunk == nullptr)
    {
        runClean<asleep, midSide> (plan, state, buffers.pairs, numSamples);
        return;
    }

    runTone<asleep> (plan, state, buffers, numSamples);
    runBreak<0> (plan, state, *chunk, buffers.signals, buffers.residues, numSamples);
    runOutput<asleep, midSide> (plan, state, buffers, numSamples);
}

/** Whether a section of the tone bank or the output is at rest. */
inline bool isAsleep (const EnginePlan& plan, const EngineState& state)
{
    auto asleep = nonZero (Pair::load (plan.output.antiDenormal), Pair::all (0.0)) &
        ~nonZero (Pair::load (state.tone.output.first), Pair::load (state.tone.output.second));

    for (int i = 0; i < numChains; i += width)
        asleep |= nonZero (Four::load (plan.tone.antiDenormal + i), Four::zero()) &
            ~nonZero (Four::load (state.tone.bank.first + i), Four::load (state.tone.bank.second + i));

    return asleep != 0;
}

template <bool midSide>
bool processChunk (
    const EnginePlan& plan, EngineState& state, const BreakChunk* chunk, float* left, float* right, int numSamples)
{
    const auto size = static_cast<unsigned> (numSamples) * sizeof (float);
    float kept[2][chunkSize], unwanted[chunkSize];
    memcpy (kept[0], left, size);
    memcpy (kept[1], right, size);

    // What this chunk can change.
    const bool breaking = chunk != nullptr && chunk->running != 0;
    EngineState before;

    if (breaking)
        before = state;
    else
        before.tone = state.tone;

    ChunkBuffers buffers;
    enter<midSide> (plan, left, right, buffers.pairs, numSamples);

    if (isAsleep (plan, state))
        run<true, midSide> (plan, state, breaking ? chunk : nullptr, buffers, numSamples);
    else
        run<false, midSide> (plan, state, breaking ? chunk : nullptr, buffers, numSamples);

    auto* const leftOut = plan.bypass[0] && ! midSide ? unwanted : left;
    auto* const rightOut = plan.bypass[1] && ! midSide ? unwanted : right;

    if (leave (buffers.pairs, leftOut, rightOut, numSamples))
        return true;

    if (breaking)
        state = before;
    else
        state.tone = before.tone;

    memcpy (left, kept[0], size);
    memcpy (right, kept[1], size);
    return false;
}

inline bool process (
    const EnginePlan& plan, EngineState& state, const BreakChunk* chunk, float* left, float* right, int numSamples)
{
    return plan.midSide ? processChunk<true> (plan, state, chunk, left, right, numSamples)
                        : processChunk<false> (plan, state, chunk, left, right, numSamples);
}

} // namespace
} // namespace kestreleq::dsp::simd
