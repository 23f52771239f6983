#pragma once

// The engine's chunk for whichever registers were included before: both lanes' chains side by side, twelve in three
// times Four.

#include "engine/dsp/simd/Kernels.h"
#include "engine/dsp/simd/VectorShaper.h"
#include "engine/dsp/simd/VectorTransfer.h"

#include <string.h>

namespace kestreleq::dsp::simd
{
namespace
{

constexpr int width = 4;

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
    ToneSections tone (state.tone);
    auto output = Sections<Pair>::load (state.output, 0);

    for (auto* const end = pairs + 2 * numSamples; pairs != end; pairs += 2)
    {
        auto y = tone.step<asleep, false> (plan, pairs, nullptr);

        if constexpr (midSide)
            y = sumAndDifference (y);

        outputStep<asleep> (plan, output, y).store (pairs);
    }

    tone.store (state.tone);
    output.store (state.output, 0);
}

template <bool asleep>
void runTone (const EnginePlan& plan, EngineState& state, ChunkBuffers& buffers, int numSamples)
{
    ToneSections tone (state.tone);

    for (int n = 0; n < numSamples; ++n)
    {
        auto* const pair = buffers.pairs + 2 * n;
        tone.step<asleep, true> (plan, pair, buffers.signals + numChains * n).store (pair);
        Four::zero().store (buffers.residues + width * n);
    }

    tone.store (state.tone);
}

/** The break stage of four chains, from the i-th. */
template <bool asleep, unsigned numStages, bool hasFourth>
void runBreak (
    const EnginePlan& plan, EngineState& state, const BreakChunk& chunk, int i, ChunkBuffers& buffers, int numSamples)
{
    const auto drive = Four::load (plan.drive + i);
    const auto mix = Four::load (plan.mix + i);
    Shapers<hasFourth> shapers (ShaperCurves::load (plan, i), Four::load (state.shaped1 + i),
        Four::load (state.shaped2 + i), chunk.shaping >> i & 0xfu);
    Sections<Four> stages[numStages];
    Four antiDenormal[numStages];

    // What does not run stays as it is.
    alignas (32) double ones[width];

    for (int k = 0; k < width; ++k)
        ones[k] = (chunk.running >> (i + k) & 1u) != 0 ? 1.0 : 0.0;

    const auto running = atLeast (Four::load (ones), Four::all (1.0));

    for (unsigned stage = 0; stage < numStages; ++stage)
    {
        stages[stage] = Sections<Four>::load (state.breakStages[stage], i);
        antiDenormal[stage] = Four::load (plan.breakStages[stage].antiDenormal + i) & running;
    }

    const auto* signals = buffers.signals + i;
    const auto* gate = chunk.gate;

    for (int n = 0; n < numSamples; ++n, signals += numChains)
    {
        const auto u = drive * Four::load (signals);
        auto residue = shapers.process (u) - u;

        for (unsigned stage = 0; stage < numStages; ++stage)
        {
            const auto y = Four::load (plan.breakStages[stage].direct + i) * residue + stages[stage].first;
            stages[stage].template advance<asleep> (plan.breakStages[stage], i, residue, antiDenormal[stage]);
            residue = y;
        }

        residue = residue * mix;

        if constexpr (hasFourth)
        {
            residue = residue * Four::load (gate);
            gate += chunk.gateStride;
        }

        auto* const sum = buffers.residues + width * n;
        (Four::load (sum) + residue).store (sum);
    }

    const auto keep = [running] (Four x, double* memory) { select (running, x, Four::load (memory)).store (memory); };
    keep (shapers.lastInput(), state.shaped1 + i);
    keep (shapers.inputBeforeLast(), state.shaped2 + i);

    for (unsigned stage = 0; stage < numStages; ++stage)
    {
        keep (stages[stage].first, state.breakStages[stage].first + i);
        keep (stages[stage].second, state.breakStages[stage].second + i);
    }
}

template <unsigned numStages, bool hasFourth>
void runBreak (
    const EnginePlan& plan, EngineState& state, const BreakChunk& chunk, int i, ChunkBuffers& buffers, int numSamples)
{
    const auto running = chunk.running >> i & 0xfu;

    if (running == 0)
        return;

    bool asleep = false;

    for (unsigned stage = 0; stage < numStages; ++stage)
    {
        const auto& memory = state.breakStages[stage];
        const auto live = nonZero (Four::load (plan.breakStages[stage].antiDenormal + i), Four::zero());
        const auto awake = nonZero (Four::load (memory.first + i), Four::load (memory.second + i));
        asleep = asleep || (live & running & ~awake) != 0;
    }

    if (asleep)
        runBreak<true, numStages, hasFourth> (plan, state, chunk, i, buffers, numSamples);
    else
        runBreak<false, numStages, hasFourth> (plan, state, chunk, i, buffers, numSamples);
}

template <bool asleep, bool midSide>
void runOutput (const EnginePlan& plan, EngineState& state, ChunkBuffers& buffers, int numSamples)
{
    auto output = Sections<Pair>::load (state.output, 0);

    for (int n = 0; n < numSamples; ++n)
    {
        auto* const pair = buffers.pairs + 2 * n;
        const auto residue = Four::load (buffers.residues + width * n);
        auto y = Pair::load (pair) + (residue.low() + residue.high());

        if constexpr (midSide)
            y = sumAndDifference (y);

        outputStep<asleep> (plan, output, y).store (pair);
    }

    output.store (state.output, 0);
}

template <bool asleep, bool midSide>
void run (const EnginePlan& plan, EngineState& state, const BreakChunk* chunk, ChunkBuffers& buffers, int numSamples)
{
    if (chunk == nullptr || chunk->running == 0)
    {
        runClean<asleep, midSide> (plan, state, buffers.pairs, numSamples);
        return;
    }

    runTone<asleep> (plan, state, buffers, numSamples);
    runBreak<2, false> (plan, state, *chunk, 0, buffers, numSamples);
    runBreak<2, false> (plan, state, *chunk, width, buffers, numSamples);
    runBreak<3, true> (plan, state, *chunk, 2 * width, buffers, numSamples);
    runOutput<asleep, midSide> (plan, state, buffers, numSamples);
}

/** Whether a section of the tone bank or the output is at rest. */
inline bool isAsleep (const EnginePlan& plan, const EngineState& state)
{
    auto asleep = nonZero (Pair::load (plan.output.antiDenormal), Pair::all (0.0)) &
        ~nonZero (Pair::load (state.output.first), Pair::load (state.output.second));

    for (int i = 0; i < numChains; i += width)
        asleep |= nonZero (Four::load (plan.tone.antiDenormal + i), Four::zero()) &
            ~nonZero (Four::load (state.tone.first + i), Four::load (state.tone.second + i));

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

    const auto before = state;
    ChunkBuffers buffers;
    enter<midSide> (plan, left, right, buffers.pairs, numSamples);

    if (isAsleep (plan, state))
        run<true, midSide> (plan, state, chunk, buffers, numSamples);
    else
        run<false, midSide> (plan, state, chunk, buffers, numSamples);

    auto* const leftOut = plan.bypass[0] && ! midSide ? unwanted : left;
    auto* const rightOut = plan.bypass[1] && ! midSide ? unwanted : right;

    if (leave (buffers.pairs, leftOut, rightOut, numSamples))
        return true;

    state = before;
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
