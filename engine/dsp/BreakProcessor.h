#pragma once

#include "engine/dsp/Bands.h"
#include "engine/dsp/Biquad.h"
#include "engine/dsp/Waveshaper.h"

#include <array>

namespace kestreleq::dsp
{

/** The break stage of one lane: the band-limited residue that a waveshaper leaves of each weighted band and of the air.

    Residue means the shaper's output less its present input, as it comes, without compensation of the shaper's delay.
 */
class BreakProcessor
{
public:
    BreakProcessor();

    /** Designs the filters for a sample rate in Hz and clears all state. Until then the output is 0. */
    void prepare (double sampleRate);

    /** Clears shapers, filters and the air gate. */
    void reset();

    /** Once per block: the bands' weights, of which the positive part up to 1 drives the shapers, and the air amount.
     */
    void setDrive (const std::array<float, numBands>& weights, float airAmount);

    /** One sample: the five weighted band signals and the air's difference signal in, the sum of residues out. */
    double process (const std::array<double, numBands>& bands, double airDifference);

private:
    struct Chain
    {
        Waveshaper shaper;
        BiquadCascade filter;
        double mix;
        double drive = 0.0;
        float driveSource = 0.0f;

        double process (double x)
        {
            const auto u = drive * x;
            return filter.process (shaper.process (u) - u);
        }

        void setDrive (float newSource);
        void reset();
    };

    double processAir (double difference);

    std::array<Chain, numBands> bandChains;
    Chain airChain;
    bool airGateOpen = false;
    double airGate = 0.0;
    double airGateStep = 0.0;
    bool ready = false;
};

} // namespace kestreleq::dsp
