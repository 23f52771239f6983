#include "engine/dsp/EqEngine.h"

#include "engine/dsp/LaneMemory.h"

#include <algorithm>
#include <cmath>
#include <cstring>

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
    path.breakStage.prepare (path.plan, sampleRate);
    outputFilter = designSection (outputFilterSettings, sampleRate).value_or (outputFilter);

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        writeLane (lane);

    fade.prepare (sampleRate);
    reset();
    prepared = true;
}

void EqEngine::reset()
{
    path.clear();
    fade.stop();
    isFresh = true;

    if (isNew)
        applySettings();
}

void EqEngine::applyLane (std::size_t lane, const LaneParameters& next)
{
    for (std::size_t i = 0; i < numBands; ++i)
        toneBank.setBandValue (lane, i, next.bands[i]);

    auto& air = toneBank.getAir (lane);
    air.setAmount (next.airAmount);
    air.setIndex (airIndexFor (next.airStep));
}

/** Writes a lane's part of the plan. */
void EqEngine::writeLane (std::size_t lane)
{
    const bool bypass = parameters.lanes[lane].bypass;
    const auto i = static_cast<int> (lane);
    path.plan.bypass[lane] = bypass;
    toneBank.write (path.plan, lane, bypass);
    path.breakStage.setDrive (path.plan, lane, toneBank.getWeights (lane), toneBank.getAir (lane).getAmount(), bypass);

    if (bypass)
        writePassThrough (path.plan.output, i);
    else
        writeSection (path.plan.output, i, outputFilter);

    writeGains (lane);
}

void EqEngine::writeGains (std::size_t lane)
{
    const bool bypass = parameters.lanes[lane].bypass;
    path.plan.inputGain[lane] = bypass ? 1.0 : inputGains[lane];
    path.plan.outputGain[lane] = bypass ? 1.0 : outputGains[lane] * trimGain;
}

void EqEngine::setParameters (const EngineParameters& next)
{
    wanted = next;
    isNew = true;

    if (isFresh)
        applySettings();
}

/** Takes the settings that are wanted, at the beginning of a block. */
void EqEngine::takeSettings (int blockLength)
{
    const auto change = changeBetween (parameters, wanted);

    if (change == SettingsChange::none)
    {
        isNew = false;
        return;
    }

    outgoing = path;
    fade.start (change, blockLength);
    applySettings();
}

/** Puts the settings that are wanted in force. */
void EqEngine::applySettings()
{
    const auto before = parameters;
    const auto& next = parameters = wanted;
    isNew = false;
    path.bypass = next.bypass;
    path.breakMode = next.breakMode;
    path.plan.midSide = isMidSide (next);

    if (isMidSide (before) != isMidSide (next))
        transformMidSide (path.state.tone.bank, isMidSide (next));

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

        // A bypassed lane remembers nothing: it would be out of date, and mid/side could carry it to the other lane.
        // Nor does an inactive air filter.
        if (then.bypass || now.bypass)
            path.clearLane (lane);
        else if (! toneBank.getAir (lane).isActive())
            clearSection (path.state.tone.bank, chainOf (lane, numBands));
    }

    if (before.breakMode && ! next.breakMode)
        path.breakStage.reset (path.state.breaking);

    // Whatever the filters remember is older than the bypass.
    if (before.bypass && ! next.bypass)
        path.clear();
}

void EqEngine::process (float* left, float* right, int numSamples)
{
    if (! prepared || numSamples < 1)
        return;

    isFresh = false;

    if (fade.isRunning() || isNew)
        processFading (left, right, numSamples);
    else
        path.process (kernels, gateRows, left, right, numSamples);
}

void EqEngine::processFading (float* left, float* right, int numSamples)
{
    if (! fade.isRunning())
        takeSettings (numSamples);

    while (fade.isRunning() && numSamples > 0)
    {
        const auto length = std::min ({ simd::chunkSize, fade.getRemaining(), numSamples });
        const auto size = static_cast<std::size_t> (length) * sizeof (float);
        float oldLeft[simd::chunkSize], oldRight[simd::chunkSize];
        std::memcpy (oldLeft, left, size);
        std::memcpy (oldRight, right, size);

        outgoing.process (kernels, gateRows, oldLeft, oldRight, length);
        path.process (kernels, gateRows, left, right, length);

        // What neither touches stays to the last bit, a number that is none included.
        const auto isUntouched = [this] (std::size_t channel)
        { return outgoing.passes (channel) && path.passes (channel); };
        fade.mix (
            { oldLeft, oldRight }, { isUntouched (0) ? oldLeft : left, isUntouched (1) ? oldRight : right }, length);

        left += length;
        right += length;
        numSamples -= length;
    }

    path.process (kernels, gateRows, left, right, numSamples);
}

} // namespace kestreleq::dsp
