#pragma once

// The break stage of a chunk, as many chains at a time as a register holds.

#include "engine/dsp/simd/VectorShaper.h"

namespace kestreleq::dsp::simd
{
namespace
{

/** Runs the residues of some chains, from the i-th, through their filters and adds them to the sums. */
template <bool asleep, typename Vector, unsigned numStages, bool isAir>
void filterResidues (const EnginePlan& plan, EngineState& state, const BreakChunk& chunk, int i, const double* residues,
    double* sums, int numSamples)
{
    // What does not run stays as it is.
    alignas (32) double ones[Vector::size];

    for (int k = 0; k < Vector::size; ++k)
        ones[k] = (chunk.running >> (i + k) & 1u) != 0 ? 1.0 : 0.0;

    const auto running = atLeast (Vector::load (ones), Vector::all (1.0));
    Sections<Vector> stages[numStages];
    Vector antiDenormal[numStages];

    for (unsigned stage = 0; stage < numStages; ++stage)
    {
        stages[stage] = Sections<Vector>::load (state.breaking.stages[stage], i);
        antiDenormal[stage] = Vector::load (plan.breakStages[stage].antiDenormal + i) & running;
    }

    const auto half = i % width; // which part of a row this is
    const auto* gate = chunk.gate + half;
    sums += half;

    for (int n = 0; n < numSamples; ++n)
    {
        auto residue = Vector::load (residues + Vector::size * n);

        for (unsigned stage = 0; stage < numStages; ++stage)
        {
            const auto y = Vector::load (plan.breakStages[stage].direct + i) * residue + stages[stage].first;
            stages[stage].template advance<asleep> (plan.breakStages[stage], i, residue, antiDenormal[stage]);
            residue = y;
        }

        if constexpr (isAir)
        {
            residue = residue * Vector::load (gate);
            gate += chunk.gateStride;
        }

        (Vector::load (sums) + residue).store (sums);
        sums += width;
    }

    const auto keep = [running] (Vector x, double* memory)
    { select (running, x, Vector::load (memory)).store (memory); };

    for (unsigned stage = 0; stage < numStages; ++stage)
    {
        keep (stages[stage].first, state.breaking.stages[stage].first + i);
        keep (stages[stage].second, state.breaking.stages[stage].second + i);
    }
}

/** Whether a running chain's filter is at rest. */
template <typename Vector, unsigned numStages>
bool isBreakAsleep (const EnginePlan& plan, const EngineState& state, unsigned running, int i)
{
    unsigned asleep = 0;

    for (unsigned stage = 0; stage < numStages; ++stage)
    {
        const auto& memory = state.breaking.stages[stage];
        asleep |= nonZero (Vector::load (plan.breakStages[stage].antiDenormal + i), Vector::all (0.0)) &
            ~nonZero (Vector::load (memory.first + i), Vector::load (memory.second + i));
    }

    return (asleep & running) != 0;
}

/** All chains from the i-th on. */
template <int i>
void runBreak (const EnginePlan& plan, EngineState& state, const BreakChunk& chunk, const double* signals, double* sums,
    int numSamples)
{
    using Vector = BreakVector;
    constexpr bool isAir = i + Vector::size > firstAirChain;
    constexpr unsigned numStages = isAir ? 3 : i < 8 ? 2 : 1;
    constexpr auto all = (1u << Vector::size) - 1u;

    if (const auto running = chunk.running >> i & all; running != 0)
    {
        alignas (32) double residues[Vector::size * chunkSize];
        shape<Vector, isAir> (plan, state, running, chunk.shaping >> i & all, i, signals, residues, numSamples);

        if (isBreakAsleep<Vector, numStages> (plan, state, running, i))
            filterResidues<true, Vector, numStages, isAir> (plan, state, chunk, i, residues, sums, numSamples);
        else
            filterResidues<false, Vector, numStages, isAir> (plan, state, chunk, i, residues, sums, numSamples);
    }

    if constexpr (i + Vector::size < numChains)
        runBreak<i + Vector::size> (plan, state, chunk, signals, sums, numSamples);
}

} // namespace
} // namespace kestreleq::dsp::simd
