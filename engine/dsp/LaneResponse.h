#pragma once

#include "engine/dsp/AirFilter.h"
#include "engine/dsp/Bands.h"
#include "engine/dsp/EngineParameters.h"

#include <array>
#include <complex>
#include <span>
#include <vector>

namespace kestreleq::dsp
{

/** The magnitude response of one lane's filters (bands, air and output filter; no gains, no break stage) over a fixed
    set of frequencies, for drawing. Made of the engine's own filters, so it shows what is heard. Not for the audio
    thread. */
class LaneResponse
{
public:
    /** Designs the filters for a sample rate in Hz; frequencies in Hz. */
    void prepare (double sampleRate, std::vector<double> newFrequencies);

    /** Takes the settings; true when they moved the curve. Gains and the bypass count for nothing. */
    bool setParameters (const LaneParameters& next);

    std::span<const double> getFrequencies() const { return frequencies; }

    /** In dB, one per frequency. */
    std::span<const double> getCurve() const { return curve; }

private:
    void compute();

    /** What never changes at one frequency, the bands at weight 1. */
    struct Point
    {
        std::array<std::complex<double>, numBands> bands;
        std::complex<double> output;
    };

    LaneParameters parameters;
    AirFilter air;
    std::vector<double> frequencies;
    std::vector<Point> points;
    std::vector<double> curve;
};

} // namespace kestreleq::dsp
