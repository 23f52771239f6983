#include "engine/dsp/LaneMemory.h"
#include "engine/dsp/Waveshaper.h"
#include "engine/dsp/simd/Kernels.h"

#include <cmath>
#include <limits>

// The engine, one sample, one lane and one section after the other. What the other forms do at once they take from
// here.

namespace kestreleq::dsp::simd
{
namespace
{

/** One step of section i of a set. An input or state that is not finite
    clears the state and gives 0. */
template <unsigned count>
double advance (const SectionSet<count>& set, SectionMemory<count>& memory, int i, double x)
{
    auto& first = memory.first[i];
    auto& second = memory.second[i];
    const auto y = set.direct[i] * x + first;
    const auto nextFirst = (set.toFirst[i] * x + second) - set.feedback1[i] * first;
    auto nextSecond = set.toSecond[i] * x - set.feedback2[i] * first;

    if (! (std::isfinite (y) && std::isfinite (nextFirst) && std::isfinite (nextSecond)))
    {
        first = second = 0.0;
        return 0.0;
    }

    if (x != 0.0 || nextFirst != 0.0 || nextSecond != 0.0)
        nextSecond = (set.toSecond[i] * x + set.antiDenormal[i]) - set.feedback2[i] * first;

    first = nextFirst;
    second = nextSecond;
    return y;
}

/** What a chain of the tone bank adds to the dry signal, without the part that is in proportion to x. */
struct ChainOutput
{
    double fromState;
    double all;
};

ChainOutput advanceChain (const EnginePlan& plan, EngineState& state, int chain, double x, bool isFinite)
{
    constexpr auto nothing = std::numeric_limits<double>::quiet_NaN();

    // The air passes on what is not finite and forgets nothing for it; a band drops it.
    if (! isFinite && chain >= firstAirChain)
        return { nothing, nothing };

    const auto fromState = plan.weight[chain] * state.tone.bank.first[chain];
    advance (plan.tone, state.tone.bank, chain, x);

    if (! isFinite)
        return { 0.0, 0.0 };

    return { fromState, plan.weightedDirect[chain] * x + fromState };
}

/** The residue that the break stage leaves of a chain's signal. */
double advanceBreak (const EnginePlan& plan, EngineState& state, int chain, double signal)
{
    const Waveshaper shaper (plan.square[chain], plan.cube[chain], plan.fourth[chain]);
    const auto u = plan.drive[chain] * signal;
    auto residue = shaper.shape (u, state.breaking.shaped1[chain], state.breaking.shaped2[chain]) - u;
    state.breaking.shaped2[chain] = state.breaking.shaped1[chain];
    state.breaking.shaped1[chain] = u;

    for (int stage = 0; stage < numBreakStages; ++stage)
        residue = advance (plan.breakStages[stage], state.breaking.stages[stage], chain, residue);

    return residue;
}

/** One sample of a lane's tone bank and break stage. The chains are summed in two halves, as the others have it. */
double toneSample (
    const EnginePlan& plan, EngineState& state, const BreakChunk* breakChunk, const double* gate, int lane, double x)
{
    double sums[2] = {};
    double residues[2] = {};
    const bool isFinite = std::isfinite (x);

    for (int i = 0; i < numChains / 2; ++i)
    {
        const int chain = 2 * i + lane;
        const auto output = advanceChain (plan, state, chain, x, isFinite);
        sums[i % 2] += output.fromState;

        if (breakChunk == nullptr || (breakChunk->running >> chain & 1u) == 0)
            continue;

        const auto residue = advanceBreak (plan, state, chain, output.all);
        residues[i % 2] += chain >= firstAirChain ? residue * gate[2 + lane] : residue;
    }

    return (plan.direct[lane] * x + (sums[0] + sums[1])) + (residues[0] + residues[1]);
}

/** Rounds to single precision. What does not fit becomes 0, and the lane forgets it; both lanes if they are mid and
    side, of which one alone may have grown so large. */
float stored (const EnginePlan& plan, double y, bool (&overflown)[2], std::size_t lane)
{
    const auto rounded = static_cast<float> (y);

    if (std::abs (rounded) <= std::numeric_limits<float>::max())
        return rounded;

    overflown[lane] = true;
    overflown[1 - lane] |= plan.midSide;
    return 0.0f;
}

bool process (
    const EnginePlan& plan, EngineState& state, const BreakChunk* breakChunk, float* left, float* right, int numSamples)
{
    float* const channels[2] = { left, right };

    for (int n = 0; n < numSamples; ++n)
    {
        const auto* const gate = breakChunk != nullptr ? breakChunk->gate + n * breakChunk->gateStride : nullptr;
        double y[2] = { static_cast<double> (left[n]), static_cast<double> (right[n]) };

        if (plan.midSide)
        {
            const auto l = y[0], r = y[1];
            y[0] = (l + r) * 0.5;
            y[1] = (l - r) * 0.5;
        }

        for (int lane = 0; lane < 2; ++lane)
            if (! plan.bypass[lane])
                y[lane] = toneSample (plan, state, breakChunk, gate, lane, y[lane] * plan.inputGain[lane]);

        if (plan.midSide)
        {
            const auto mid = y[0], side = y[1];
            y[0] = mid + side;
            y[1] = mid - side;
        }

        bool overflown[2] = {};

        for (int lane = 0; lane < 2; ++lane)
        {
            if (! plan.bypass[lane])
                y[lane] = advance (plan.output, state.tone.output, lane, y[lane]) * plan.outputGain[lane];

            if (! plan.bypass[lane] || plan.midSide)
                channels[lane][n] = stored (plan, y[lane], overflown, static_cast<std::size_t> (lane));
        }

        for (std::size_t lane = 0; lane < 2; ++lane)
            if (overflown[lane])
                clearLaneMemory (state, lane);
    }

    return true;
}

PowerSums measure (const float* left, const float* right, int numSamples)
{
    PowerSums sums {};

    for (int n = 0; n < numSamples; ++n)
    {
        const auto l = static_cast<double> (left[n]);
        const auto r = static_cast<double> (right[n]);
        sums.first += l * l;
        sums.second += r * r;
        sums.product += l * r;
    }

    return sums;
}

PowerSums measureMidSide (const float* left, const float* right, int numSamples)
{
    PowerSums sums {};

    for (int n = 0; n < numSamples; ++n)
    {
        const auto l = static_cast<double> (left[n]);
        const auto r = static_cast<double> (right[n]);
        const auto mid = (l + r) * 0.5;
        const auto side = (l - r) * 0.5;
        sums.first += mid * mid;
        sums.second += side * side;
    }

    return sums;
}

} // namespace

const Kernels& scalarKernels()
{
    static constexpr Kernels kernels { "scalar", process, measure, measureMidSide };
    return kernels;
}

} // namespace kestreleq::dsp::simd
