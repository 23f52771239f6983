#include "engine/dsp/ToneBank.h"

#include "engine/dsp/BandWeights.h"
#include "engine/dsp/SectionWriter.h"

namespace kestreleq::dsp
{

void ToneBank::prepare (double newSampleRate)
{
    sampleRate = newSampleRate;

    // A design that fails leaves what was there.
    for (std::size_t i = 0; i < numBands; ++i)
        bands[i] = designSection (bandTable[i].filter, sampleRate).value_or (bands[i]);

    for (auto& lane : lanes)
        lane.air.prepare (sampleRate);
}

void ToneBank::setBandValue (std::size_t lane, std::size_t band, float value)
{
    lanes[lane].weights[band] =
        static_cast<float> (piecewiseLinear (bandTable[band].weights, static_cast<double> (value)));
}

void ToneBank::write (simd::EnginePlan& plan, std::size_t lane, bool bypass) const
{
    const auto& [weights, air] = lanes[lane];
    plan.direct[lane] = 1.0;

    for (std::size_t i = 0; i <= numBands; ++i)
    {
        const auto chain = chainOf (lane, i);
        writePassThrough (plan.tone, chain);
        plan.weight[chain] = plan.weightedDirect[chain] = 0.0;

        if (bypass)
            continue;

        if (i < numBands)
        {
            writeSection (plan.tone, chain, bands[i]);
            plan.weight[chain] = static_cast<double> (weights[i]);
            plan.weightedDirect[chain] = plan.weight[chain] * plan.tone.direct[chain];
        }
        else if (air.isActive())
        {
            writeSection (plan.tone, chain, air.getSection(), air.getPreGain());
            plan.weight[chain] = 1.0;
            plan.weightedDirect[chain] = plan.tone.direct[chain] - 1.0; // only the difference from the input is added
        }

        plan.direct[lane] += plan.weightedDirect[chain];
    }
}

std::complex<double> ToneBank::response (std::size_t lane, double frequency) const
{
    const auto& [weights, air] = lanes[lane];
    auto sum = air.response (frequency);

    for (std::size_t i = 0; i < numBands; ++i)
        sum += static_cast<double> (weights[i]) * responseAt (bands[i], frequency, sampleRate);

    return sum;
}

} // namespace kestreleq::dsp
