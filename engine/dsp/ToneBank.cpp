#include "engine/dsp/ToneBank.h"

#include "engine/dsp/BandWeights.h"
#include "engine/dsp/BreakProcessor.h"

#include <utility>

namespace kestreleq::dsp
{

void ToneBank::prepare (double newSampleRate)
{
    sampleRate = newSampleRate;

    for (std::size_t i = 0; i < numBands; ++i)
        bands[i].design ({ &bandTable[i].filter, 1 }, sampleRate);

    air.prepare (sampleRate);
}

void ToneBank::reset()
{
    for (auto& band : bands)
        band.reset();

    air.reset();
}

void ToneBank::setBandValue (std::size_t band, float value)
{
    weights[band] = static_cast<float> (piecewiseLinear (bandTable[band].weights, static_cast<double> (value)));
}

template <typename AddResidue>
void ToneBank::processWith (double* samples, int numSamples, AddResidue&& addResidue)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto x = samples[n];
        std::array<double, numBands> weighted;
        auto sum = x;

        for (std::size_t i = 0; i < numBands; ++i)
        {
            weighted[i] = static_cast<double> (weights[i]) * bands[i].process (x);
            sum += weighted[i];
        }

        const auto airDifference = air.process (x) - x;
        samples[n] = addResidue (sum + airDifference, weighted, airDifference);
    }
}

void ToneBank::process (double* samples, int numSamples)
{
    processWith (samples, numSamples, [] (double clean, const auto&, double) { return clean; });
}

void ToneBank::process (double* samples, int numSamples, BreakProcessor& breakProcessor)
{
    breakProcessor.setDrive (weights, air.getAmount());

    processWith (samples, numSamples,
        [&breakProcessor] (double clean, const auto& weighted, double airDifference)
        { return clean + breakProcessor.process (weighted, airDifference); });
}

std::complex<double> ToneBank::response (double frequency) const
{
    auto sum = air.response (frequency);

    for (std::size_t i = 0; i < numBands; ++i)
        sum += static_cast<double> (weights[i]) * bands[i].response (frequency, sampleRate);

    return sum;
}

} // namespace kestreleq::dsp
