#include "engine/dsp/EqEngine.h"

#include <cmath>
#include <limits>

namespace kestreleq::dsp
{
namespace
{

constexpr double stageGainSpan = 18.0; // dB from value 0 to value 1
constexpr double trimGainSpan = 24.0;

float linearGain (float value, double span)
{
    if (! std::isfinite (value))
        return 1.0f;

    return static_cast<float> (std::pow (10.0, (static_cast<double> (value) - 0.5) * span / 20.0));
}

void multiply (float* samples, int numSamples, float gain)
{
    for (int n = 0; n < numSamples; ++n)
        samples[n] *= gain;
}

/** A gain that lets nothing through which is not finite. */
void multiplyFinite (float* samples, int numSamples, float gain)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto y = samples[n] * gain;
        samples[n] = std::abs (y) <= std::numeric_limits<float>::max() ? y : 0.0f;
    }
}

void encodeMidSide (float* left, float* right, int numSamples)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto l = left[n];
        const auto r = right[n];
        left[n] = (l + r) * 0.5f;
        right[n] = (l - r) * 0.5f;
    }
}

void decodeMidSide (float* mid, float* side, int numSamples)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto m = mid[n];
        const auto s = side[n];
        mid[n] = m + s;
        side[n] = m - s;
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

void EqEngine::process (float* left, float* right, int numSamples)
{
    if (! prepared || numSamples < 1 || parameters.bypass)
        return;

    const std::array<float*, numLanes> channels{ left, right };
    const bool encode = parameters.midSide && ! parameters.link;

    if (encode)
        encodeMidSide (left, right, numSamples);

    if (resetPending)
    {
        for (auto& lane : lanes)
            lane.reset();

        resetPending = false;
    }

    for (std::size_t i = 0; i < numLanes; ++i)
    {
        if (parameters.lanes[i].bypass)
            continue;

        auto& lane = lanes[i];
        multiply (channels[i], numSamples, lane.inputGain);

        if (parameters.breakMode)
            lane.toneBank.process (channels[i], numSamples, lane.breakProcessor);
        else
            lane.toneBank.process (channels[i], numSamples);
    }

    if (encode)
        decodeMidSide (left, right, numSamples);

    for (std::size_t i = 0; i < numLanes; ++i)
    {
        if (parameters.lanes[i].bypass)
            continue;

        auto& lane = lanes[i];

        for (int n = 0; n < numSamples; ++n)
            channels[i][n] = static_cast<float> (lane.outputFilter.process (static_cast<double> (channels[i][n])));

        multiply (channels[i], numSamples, lane.outputGain);
        multiplyFinite (channels[i], numSamples, trimGain);
    }
}

} // namespace kestreleq::dsp
