#pragma once

#include <complex>

namespace kestreleq::dsp
{

/** The filter types of the Audio EQ Cookbook, by number. */
enum class FilterType
{
    lowPass,
    highPass,
    bandPass, // 0 dB peak
    notch,
    allPass,
    peaking,
    lowShelf,
    highShelf
};

/** A second-order section, a0 normalised to 1:
    H(z) = (b0 + b1 z^-1 + b2 z^-2) / (1 + a1 z^-1 + a2 z^-2). The default passes its input through. */
struct BiquadCoefficients
{
    double b0 = 1.0;
    double b1 = 0.0;
    double b2 = 0.0;
    double a1 = 0.0;
    double a2 = 0.0;

    bool operator== (const BiquadCoefficients&) const = default;
};

/** The section that R. Bristow-Johnson's "Cookbook formulae for audio EQ biquad filter coefficients" gives for a type,
    with w0 = 2 pi f / fs, alpha = sin (w0) / (2 Q) and A = 10^(gain / 40).

    frequency and sampleRate in Hz, gain in dB (used by the peaking and shelf types only). Nothing is limited here; with
    values out of range the result may be unstable or not finite. */
BiquadCoefficients cookbookSection (FilterType type, double frequency, double sampleRate, double q, double gain);

/** The section's transfer function at a frequency in Hz, z = e^(j 2 pi f / fs). */
std::complex<double> responseAt (const BiquadCoefficients& section, double frequency, double sampleRate);

} // namespace kestreleq::dsp
