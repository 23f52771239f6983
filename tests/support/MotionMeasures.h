#pragma once

#include <span>

namespace kestreleq::test
{
/** The highest line more than 40 Hz from a sine of this frequency in Hz, in dB over the sine's own. 65536 samples. */
double highestProductDb (std::span<const float> signal, double frequency, double sampleRate);

/** The peak of what lies above 6 kHz, in dB over another peak (linear). */
double aboveSixKilohertzDb (std::span<const float> signal, double sampleRate, double overPeak);

/** The largest step from one sample to the next. */
double largestStep (std::span<const float> signal);
} // namespace kestreleq::test
