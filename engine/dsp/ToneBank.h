#pragma once

#include "engine/dsp/AirFilter.h"
#include "engine/dsp/Bands.h"
#include "engine/dsp/Biquad.h"

#include <array>
#include <complex>
#include <cstddef>

namespace kestreleq::dsp
{

class BreakProcessor;

/** The parallel equaliser of one lane: the dry signal, plus each band filter's output times its weight, plus what the
    air filter adds. The filters are fixed; a band's value only moves its weight. */
class ToneBank
{
public:
    /** Designs all filters for a sample rate in Hz and clears their state. */
    void prepare (double newSampleRate);

    void reset();

    /** Value 0 to 1; at 0.5 the band adds nothing. */
    void setBandValue (std::size_t band, float value);

    AirFilter& getAir() { return air; }

    const std::array<float, numBands>& getWeights() const { return weights; }

    /** Processes samples in place. */
    void process (double* samples, int numSamples);

    /** The same with the break stage's residue added; its drive is set from the present weights and air amount. */
    void process (double* samples, int numSamples, BreakProcessor& breakProcessor);

    /** The transfer function, without the break stage, at a frequency in Hz. */
    std::complex<double> response (double frequency) const;

private:
    template <typename AddResidue>
    void processWith (double* samples, int numSamples, AddResidue&& addResidue);

    std::array<BiquadCascade, numBands> bands;
    std::array<float, numBands> weights {};
    AirFilter air;
    double sampleRate = 0.0;
};

} // namespace kestreleq::dsp
