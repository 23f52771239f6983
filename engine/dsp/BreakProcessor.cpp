#include "engine/dsp/BreakProcessor.h"

#include "engine/dsp/LaneMemory.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace kestreleq::dsp
{
namespace
{

constexpr double airMixDecibels = -33.0;
constexpr double airGateSeconds = 0.02;
constexpr float airGateThreshold = 0.1f;

constexpr std::array<SectionSettings, simd::numBreakStages> airBreakFilter { { highPass (5.0, 0.707),
    { FilterType::highShelf, 8000.0, 0.707, 3.0 }, lowPass (18000.0, 0.707) } };

// A tail below this (-300 dB) is none; what the anti-denormal constant leaves behind is far lower.
constexpr double smallestTail = 1e-15;

double coefficient (float value)
{
    return static_cast<double> (value);
}

/** Writes a chain's filters; the last one carries the gain by which the residue is mixed in. */
void writeStages (
    simd::EnginePlan& plan, int chain, std::span<const SectionSettings> stages, double mix, double sampleRate)
{
    for (std::size_t i = 0; i < simd::numBreakStages; ++i)
    {
        auto& set = plan.breakStages[i];

        if (i < stages.size())
            writeSection (set, chain, designSection (stages[i], sampleRate).value_or (BiquadCoefficients {}),
                i + 1 == stages.size() ? mix : 1.0);
        else
            writePassThrough (set, chain);
    }
}

double cubed (float drive)
{
    const auto limited = std::clamp (static_cast<double> (drive), 0.0, 1.0);
    return limited * limited * limited;
}

/** Whether a chain's filters remember anything that counts. */
bool isRinging (const simd::BreakMemory& memory, int chain)
{
    return std::any_of (std::begin (memory.stages), std::end (memory.stages),
        [=] (const auto& stage) {
            return ! (std::abs (stage.first[chain]) <= smallestTail && std::abs (stage.second[chain]) <= smallestTail);
        });
}

} // namespace

void BreakProcessor::prepare (simd::EnginePlan& plan, double sampleRate)
{
    for (std::size_t lane = 0; lane < numLanes; ++lane)
    {
        for (std::size_t i = 0; i < numBands; ++i)
        {
            const auto& row = bandTable[i];
            const auto chain = chainOf (lane, i);
            plan.square[chain] = coefficient (row.shaperSquare);
            plan.cube[chain] = coefficient (row.shaperCube);
            plan.fourth[chain] = 0.0;
            writeStages (plan, chain, row.breakSections(), std::pow (10.0, row.breakMixExponent), sampleRate);
        }

        const auto air = chainOf (lane, numBands);
        plan.square[air] = coefficient (0.08f);
        plan.cube[air] = 0.0;
        plan.fourth[air] = coefficient (0.02f);
        writeStages (plan, air, airBreakFilter, std::pow (10.0, airMixDecibels / 20.0), sampleRate);
    }

    gateStep = 1.0 / (airGateSeconds * sampleRate);
}

void BreakProcessor::reset (simd::BreakMemory& memory)
{
    for (std::size_t lane = 0; lane < numLanes; ++lane)
        resetLane (memory, lane);
}

void BreakProcessor::resetLane (simd::BreakMemory& memory, std::size_t lane)
{
    for (std::size_t i = 0; i <= numBands; ++i)
    {
        const auto chain = chainOf (lane, i);
        clearBreakChain (memory, chain);
        ringing &= ~(1u << chain);
    }

    gates[lane].value = 0.0;
}

void BreakProcessor::setDrive (
    simd::EnginePlan& plan, std::size_t lane, const std::array<float, numBands>& weights, float airAmount, bool bypass)
{
    for (std::size_t i = 0; i <= numBands; ++i)
    {
        const auto chain = chainOf (lane, i);
        const auto bit = 1u << chain;
        plan.drive[chain] = cubed (i < numBands ? weights[i] : airAmount);
        driven = plan.drive[chain] != 0.0 ? driven | bit : driven & ~bit;
    }

    gates[lane].open = airAmount > airGateThreshold;
    gates[lane].frozen = bypass;
}

double BreakProcessor::Gate::next (double step) const
{
    if (frozen)
        return value;

    return open ? std::min (1.0, value + step) : std::max (0.0, value - step);
}

/** Fills the gate's rows, one if the gates stand still, and cuts the chunk where one starts or stops. */
void BreakProcessor::moveGates (simd::BreakChunk& chunk, double* gateRows, int& numSamples)
{
    const bool moving = std::any_of (gates.begin(), gates.end(), [] (const Gate& gate) { return gate.isMoving(); });
    const auto length = moving ? numSamples : 1;
    int n = 0;

    for (; n < length; ++n)
    {
        const double next[] = { gates[0].next (gateStep), gates[1].next (gateStep) };
        auto* const row = gateRows + gateRow * n;

        if (n > 0 && ((next[0] > 0.0) != (row[2 - gateRow] > 0.0) || (next[1] > 0.0) != (row[3 - gateRow] > 0.0)))
            break;

        row[0] = row[1] = 1.0;

        for (std::size_t lane = 0; lane < numLanes; ++lane)
            row[2 + lane] = gates[lane].value = next[lane];
    }

    if (moving)
        numSamples = n;

    chunk.gate = gateRows;
    chunk.gateStride = moving ? gateRow : 0;
}

simd::BreakChunk BreakProcessor::begin (
    const simd::EnginePlan& plan, simd::BreakMemory& memory, GateRows& gateRows, int& numSamples)
{
    simd::BreakChunk chunk {};
    moveGates (chunk, gateRows.values, numSamples);

    const auto candidates = driven | ringing;

    for (int chain = 0; chain < simd::numChains; ++chain)
    {
        const auto lane = static_cast<std::size_t> (chain % 2);
        const auto bit = 1u << chain;

        if ((candidates & bit) == 0 || gates[lane].frozen ||
            (chain >= simd::firstAirChain && ! (gateRows.values[2 + lane] > 0.0)))
            continue;

        const bool shaping = plan.drive[chain] != 0.0 || memory.shaped1[chain] != 0.0 || memory.shaped2[chain] != 0.0;

        if (shaping)
            chunk.shaping |= bit;

        if (shaping || isRinging (memory, chain))
        {
            chunk.running |= bit;
            ringing |= bit;
        }
        else
        {
            clearBreakChain (memory, chain);
            ringing &= ~bit;
        }
    }

    return chunk;
}

} // namespace kestreleq::dsp
