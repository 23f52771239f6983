#pragma once

#include "engine/dsp/AirFilter.h"
#include "engine/dsp/Bands.h"
#include "engine/dsp/simd/EngineData.h"

#include <array>
#include <complex>
#include <cstddef>

namespace kestreleq::dsp
{

/** The parallel equaliser of both lanes: the dry signal, plus each band filter's output times its weight, plus what the
    air filter adds. The filters are fixed; a band's value only moves its weight.

    This class writes the bank's plan; the simd forms process audio by it, both lanes' sections side by side. Lanes
    count from 0 (left or mid), bands from 0 (the lowest). Once prepared, for the audio thread alone. */
class ToneBank
{
public:
    /** Designs all filters for a sample rate in Hz. */
    void prepare (double newSampleRate);

    /** Value 0 to 1; at 0.5 the band adds nothing. */
    void setBandValue (std::size_t lane, std::size_t band, float value);

    AirFilter& getAir (std::size_t lane) { return lanes[lane].air; }

    const AirFilter& getAir (std::size_t lane) const { return lanes[lane].air; }

    const std::array<float, numBands>& getWeights (std::size_t lane) const { return lanes[lane].weights; }

    /** Writes a lane's part of the plan, or a lane that passes through. */
    void write (simd::EnginePlan& plan, std::size_t lane, bool bypass) const;

    /** The lane's transfer function, without the break stage, at a frequency in Hz. */
    std::complex<double> response (std::size_t lane, double frequency) const;

private:
    struct Lane
    {
        std::array<float, numBands> weights {};
        AirFilter air;
    };

    std::array<BiquadCoefficients, numBands> bands;
    std::array<Lane, numLanes> lanes;
    double sampleRate = 0.0;
};

} // namespace kestreleq::dsp
