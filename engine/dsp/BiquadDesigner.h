#pragma once

#include "engine/dsp/Cookbook.h"

#include <optional>

namespace kestreleq::dsp
{

/** What a fixed filter section is designed from: frequency in Hz, gain in dB. */
struct SectionSettings
{
    FilterType type = FilterType::peaking;
    double frequency = 1000.0;
    double q = 0.70710678;
    double gain = 0.0;
};

/** The greatest frequency in Hz that designSection uses at a sample rate: the lesser of 20 kHz and 0.225 of the rate.
    The low ceiling belongs to the sound of the equaliser. */
double designCeiling (double sampleRate);

/** Designs a section within limits: Q 0.01..100, gain -60..+36 dB, frequency 1 Hz..designCeiling.

    The coefficients are rounded to single precision, unless rounding would put a pole on or outside the unit circle (it
    does for the lowest filters above 176.4 kHz). Nothing when the ceiling is below 1 Hz or a coefficient is not finite;
    the caller then keeps what it had. */
std::optional<BiquadCoefficients> designSection (const SectionSettings& settings, double sampleRate);

/** The section with its numerator scaled so that its gain at a reference frequency in Hz is `gain` dB. The pass-through
    section when the sample rate or the frequency is not finite and above 0, or the section has no gain there. */
BiquadCoefficients normalisedAt (const BiquadCoefficients& section, double frequency, double sampleRate, double gain);

} // namespace kestreleq::dsp
