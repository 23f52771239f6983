#include "engine/dsp/EqEngine.h"

#include "engine/dsp/SectionWriter.h"

#include <algorithm>
#include <cmath>

namespace kestreleq::dsp
{
namespace
{

double linearGain (float value, double span)
{
    if (! std::isfinite (value))
        return 1.0;

    return std::pow (10.0, (static_cast<double> (value) - 0.5) * span / 20.0);
}

/** A lane's states from one to the other. */
void copyLane (const simd::EngineState& from, simd::EngineState& to, std::size_t lane)
{
    const auto copySections = [lane] (const auto& source, auto& destination)
    {
        for (std::size_t i = lane; i < std::size (source.first); i += numLanes)
        {
            destination.first[i] = source.first[i];
            destination.second[i] = source.second[i];
        }
    };

    copySections (from.tone, to.tone);
    copySections (from.output, to.output);

    for (std::size_t i = 0; i < simd::numBreakStages; ++i)
        copySections (from.breakStages[i], to.breakStages[i]);

    for (std::size_t i = lane; i < simd::numChains; i += numLanes)
    {
        to.shaped1[i] = from.shaped1[i];
        to.shaped2[i] = from.shaped2[i];
    }
}

} // namespace

EqEngine::EqEngine (const simd::Kernels& kernelsToUse)
    : kernels (kernelsToUse)
{
    for (std::size_t lane = 0; lane < numLanes; ++lane)
    {
        applyLane (lane, parameters.lanes[lane]);
        writeLane (lane);
    }
}

void EqEngine::prepare (double sampleRate)
{
    toneBank.prepare (sampleRate);
    breakProcessor.prepare (plan, sampleRate);
    outputFilter = designSection (outputFilterSettings, sampleRate).value_or (outputFilter);

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        writeLane (lane);

    reset();
    prepared = true;
}

void EqEngine::reset()
{
    state = {};
    breakProcessor.reset (state);
    resetPending = false;
}

void EqEngine::applyLane (std::size_t lane, const LaneParameters& next)
{
    for (std::size_t i = 0; i < numBands; ++i)
        toneBank.setBandValue (lane, i, next.bands[i]);

    auto& air = toneBank.getAir (lane);
    air.setAmount (next.airAmount);
    air.setIndex (airIndexFor (next.airStep));

    // An inactive filter forgets.
    if (! air.isActive())
        clearSection (state.tone, chainOf (lane, numBands));
}

/** Writes a lane's part of the plan. */
void EqEngine::writeLane (std::size_t lane)
{
    const bool bypass = parameters.lanes[lane].bypass;
    const auto i = static_cast<int> (lane);
    plan.bypass[lane] = bypass;
    toneBank.write (plan, lane, bypass);
    breakProcessor.setDrive (plan, lane, toneBank.getWeights (lane), toneBank.getAir (lane).getAmount(), bypass);

    if (bypass)
        writePassThrough (plan.output, i);
    else
        writeSection (plan.output, i, outputFilter);

    writeGains (lane);
}

void EqEngine::writeGains (std::size_t lane)
{
    const bool bypass = parameters.lanes[lane].bypass;
    plan.inputGain[lane] = bypass ? 1.0 : inputGains[lane];
    plan.outputGain[lane] = bypass ? 1.0 : outputGains[lane] * trimGain;
}

void EqEngine::setParameters (const EngineParameters& next)
{
    const auto before = parameters;
    parameters = next;
    plan.midSide = next.midSide && ! next.link;

    if (next.trim != before.trim)
        trimGain = linearGain (next.trim, trimGainSpan);

    for (std::size_t lane = 0; lane < numLanes; ++lane)
    {
        const auto& now = before.lanes[lane];
        const auto& then = next.lanes[lane];

        if (then.inputGain != now.inputGain)
            inputGains[lane] = linearGain (then.inputGain, stageGainSpan);

        if (then.outputGain != now.outputGain)
            outputGains[lane] = linearGain (then.outputGain, stageGainSpan);

        if (then.bands != now.bands || then.airAmount != now.airAmount || then.airStep != now.airStep ||
            then.bypass != now.bypass)
        {
            applyLane (lane, then);
            writeLane (lane);
        }
        else
        {
            writeGains (lane);
        }
    }

    if (before.breakMode && ! next.breakMode)
        breakProcessor.reset (state);

    // Whatever the filters remember is older than the bypass and would click.
    if (before.bypass && ! next.bypass)
        resetPending = true;
}

void EqEngine::process (float* left, float* right, int numSamples)
{
    if (! prepared || numSamples < 1 || parameters.bypass)
        return;

    if (resetPending)
        reset();

    if (plan.bypass[0] && plan.bypass[1] && ! plan.midSide)
        return;

    while (numSamples > 0)
    {
        auto length = std::min (simd::chunkSize, numSamples);

        if (parameters.breakMode)
        {
            const auto breakChunk = breakProcessor.begin (plan, state, length);
            runChunk (&breakChunk, left, right, length);
        }
        else
        {
            runChunk (nullptr, left, right, length);
        }

        left += length;
        right += length;
        numSamples -= length;
    }
}

void EqEngine::runChunk (const simd::BreakChunk* breakChunk, float* left, float* right, int numSamples)
{
    const auto run = [&] (simd::EngineState& used)
    {
        if (! kernels.process (plan, used, breakChunk, left, right, numSamples))
            simd::scalarKernels().process (plan, used, breakChunk, left, right, numSamples);
    };

    if (! plan.bypass[0] && ! plan.bypass[1])
    {
        run (state);
        return;
    }

    // A bypassed lane passes through filters at rest and keeps what its own remember.
    simd::EngineState active {};

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        if (! plan.bypass[lane])
            copyLane (state, active, lane);

    run (active);

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        if (! plan.bypass[lane])
            copyLane (active, state, lane);
}

} // namespace kestreleq::dsp
