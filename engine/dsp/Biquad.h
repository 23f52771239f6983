#pragma once

#include "engine/dsp/BiquadDesigner.h"
#include "engine/dsp/SectionWriter.h"

#include <cmath>
#include <complex>

namespace kestreleq::dsp
{

/** One second-order section in transposed direct form II. Coefficients as designed; state and recursion in double
    precision, because single-precision state is wrong by -64 dB on the low bands. */
class BiquadSection
{
public:
    void setCoefficients (const BiquadCoefficients& newCoefficients) { coefficients = newCoefficients; }

    /** Designs and takes the section; a design that fails leaves the coefficients as they were. */
    void design (const SectionSettings& settings, double sampleRate)
    {
        if (const auto designed = designSection (settings, sampleRate))
            coefficients = *designed;
    }

    void reset() { s1 = s2 = 0.0; }

    /** One sample. A value that is not finite, in or out, clears the state and gives 0. */
    double process (double x)
    {
        const auto& c = coefficients;
        const auto y = c.b0 * x + s1;
        const auto next1 = c.b1 * x - c.a1 * y + s2;
        auto next2 = c.b2 * x - c.a2 * y;

        if (x != 0.0 || next1 != 0.0 || next2 != 0.0)
            next2 += antiDenormal;

        // An input or a state that is not finite always shows in one of these.
        if (! (std::isfinite (y) && std::isfinite (next1) && std::isfinite (next2)))
            return clear();

        s1 = next1;
        s2 = next2;
        return y;
    }

    /** The transfer function at a frequency in Hz. */
    std::complex<double> response (double frequency, double sampleRate) const
    {
        return responseAt (coefficients, frequency, sampleRate);
    }

private:
    double clear()
    {
        reset();
        return 0.0;
    }

    BiquadCoefficients coefficients;
    double s1 = 0.0;
    double s2 = 0.0;
};

} // namespace kestreleq::dsp
