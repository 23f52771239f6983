#include "engine/dsp/EqEngine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestreleq::dsp
{
namespace
{

constexpr double stageGainSpan = 18.0; // dB from value 0 to value 1
constexpr double trimGainSpan = 24.0;

double linearGain (float value, double span)
{
    if (! std::isfinite (value))
        return 1.0;

    return std::pow (10.0, (static_cast<double> (value) - 0.5) * span / 20.0);
}

/** Mid and side of left and right, in their place. */
void encodeMidSide (double* left, double* right, int numSamples)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto l = left[n];
        const auto r = right[n];
        left[n] = (l + r) * 0.5;
        right[n] = (l - r) * 0.5;
    }
}

void decodeMidSide (double* mid, double* side, int numSamples)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto m = mid[n];
        const auto s = side[n];
        mid[n] = m + s;
        side[n] = m - s;
    }
}

/** Rounds to single precision and lets nothing through that is not finite there. */
void store (const double* source, float* destination, int numSamples)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto y = static_cast<float> (source[n]);
        destination[n] = std::abs (y) <= std::numeric_limits<float>::max() ? y : 0.0f;
    }
}

} // namespace

void EqEngine::Lane::prepare (double sampleRate)
{
    toneBank.prepare (sampleRate);
    breakProcessor.prepare (sampleRate);
    outputFilter.design (outputFilterSettings, sampleRate);
    outputFilter.reset();
}

void EqEngine::Lane::apply (const LaneParameters& next)
{
    for (std::size_t i = 0; i < numBands; ++i)
        toneBank.setBandValue (i, next.bands[i]);

    auto& air = toneBank.getAir();
    air.setAmount (next.airAmount);
    air.setIndex (airIndexFor (next.airStep));
}

void EqEngine::Lane::reset()
{
    toneBank.reset();
    breakProcessor.reset();
    outputFilter.reset();
}

EqEngine::EqEngine()
{
    for (auto& lane : lanes)
        lane.apply (parameters.lanes.front());
}

void EqEngine::prepare (double sampleRate)
{

    for (auto& lane : lanes)
        lane.prepare (sampleRate);

    resetPending = false;
    prepared = true;
}

void EqEngine::setParameters (const EngineParameters& next)
{
    for (std::size_t i = 0; i < numLanes; ++i)
    {
        const auto& now = parameters.lanes[i];
        const auto& then = next.lanes[i];
        auto& lane = lanes[i];
        lane.apply (then);

        if (then.inputGain != now.inputGain)
            lane.inputGain = linearGain (then.inputGain, stageGainSpan);

        if (then.outputGain != now.outputGain)
            lane.outputGain = linearGain (then.outputGain, stageGainSpan);

        if (parameters.breakMode && ! next.breakMode)
            lane.breakProcessor.reset();
    }

    if (next.trim != parameters.trim)
        trimGain = linearGain (next.trim, trimGainSpan);

    // Whatever the filters remember is older than the bypass and would click.
    if (parameters.bypass && ! next.bypass)
        resetPending = true;

    parameters = next;
}

void EqEngine::Lane::processInput (double* samples, int numSamples, bool breakMode)
{
    for (int n = 0; n < numSamples; ++n)
        samples[n] *= inputGain;

    if (breakMode)
        toneBank.process (samples, numSamples, breakProcessor);
    else
        toneBank.process (samples, numSamples);
}

void EqEngine::Lane::processOutput (double* samples, int numSamples, double trimGain)
{
    for (int n = 0; n < numSamples; ++n)
        samples[n] = outputFilter.process (samples[n]) * outputGain * trimGain;
}

void EqEngine::process (float* left, float* right, int numSamples)
{
    if (! prepared || numSamples < 1 || parameters.bypass)
        return;

    if (resetPending)
    {
        for (auto& lane : lanes)
            lane.reset();

        resetPending = false;
    }

    for (int start = 0; start < numSamples; start += chunkSize)
        processChunk ({ left + start, right + start }, std::min (chunkSize, numSamples - start));
}

void EqEngine::processChunk (const std::array<float*, numLanes>& channels, int numSamples)
{
    const bool encode = parameters.midSide && ! parameters.link;
    std::array<std::array<double, chunkSize>, numLanes> buffers;
    auto* const first = buffers[0].data();
    auto* const second = buffers[1].data();

    for (std::size_t i = 0; i < numLanes; ++i)
        std::copy (channels[i], channels[i] + numSamples, buffers[i].begin());

    if (encode)
        encodeMidSide (first, second, numSamples);

    for (std::size_t i = 0; i < numLanes; ++i)
        if (! parameters.lanes[i].bypass)
            lanes[i].processInput (buffers[i].data(), numSamples, parameters.breakMode);

    if (encode)
        decodeMidSide (first, second, numSamples);

    for (std::size_t i = 0; i < numLanes; ++i)
    {
        const bool bypassed = parameters.lanes[i].bypass;

        if (! bypassed)
            lanes[i].processOutput (buffers[i].data(), numSamples, trimGain);

        if (! bypassed || encode)
            store (buffers[i].data(), channels[i], numSamples);
    }
}

} // namespace kestreleq::dsp
