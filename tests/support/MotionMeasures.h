#pragma once

#include <juce_dsp/juce_dsp.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <stdexcept>
#include <vector>

namespace kestreleq::test
{
/** Blackman-Harris over 0 to 1: what it lets through elsewhere lies 92 dB down. */
inline double window (double x)
{
    return 0.35875 - 0.48829 * std::cos (2.0 * std::numbers::pi * x) + 0.14128 * std::cos (4.0 * std::numbers::pi * x) -
        0.01168 * std::cos (6.0 * std::numbers::pi * x);
}

/** The highest line more than 40 Hz from a sine of this frequency in Hz, in dB over the sine's own. 65536 samples. */
inline double highestProductDb (std::span<const float> signal, double frequency, double sampleRate)
{
    constexpr auto order = 16;
    constexpr std::size_t size = 1 << order;

    if (signal.size() != size)
        throw std::invalid_argument ("highestProductDb wants 65536 samples");

    std::vector<float> spectrum (2 * size);

    for (std::size_t n = 0; n < size; ++n)
        spectrum[n] = static_cast<float> (window (static_cast<double> (n) / size)) * signal[n];

    juce::dsp::FFT (order).performFrequencyOnlyForwardTransform (spectrum.data(), true);
    auto tone = 0.0f, product = 0.0f;

    for (std::size_t i = 0; i < size / 2; ++i)
    {
        const auto distance = std::abs (static_cast<double> (i) * sampleRate / size - frequency);
        auto& highest = distance > 40.0 ? product : tone;
        highest = std::max (highest, spectrum[i]);
    }

    return 20.0 * std::log10 (product / tone);
}

/** The peak of what lies above 6 kHz, in dB over another peak (linear). */
inline double aboveSixKilohertzDb (std::span<const float> signal, double sampleRate, double overPeak)
{
    constexpr auto numTaps = 1023;
    constexpr auto middle = numTaps / 2;
    std::vector<double> taps (numTaps);

    for (auto i = 0; i < numTaps; ++i)
    {
        const auto x = 2.0 * std::numbers::pi * 6000.0 / sampleRate * (i - middle);
        const auto low = i == middle ? 12000.0 / sampleRate : std::sin (x) / (std::numbers::pi * (i - middle));
        taps[static_cast<std::size_t> (i)] = ((i == middle ? 1.0 : 0.0) - low) * window ((i + 0.5) / numTaps);
    }

    auto peak = 0.0;

    for (std::size_t start = 0; start + numTaps <= signal.size(); ++start)
    {
        auto sum = 0.0;

        for (std::size_t i = 0; i < numTaps; ++i)
            sum += taps[i] * static_cast<double> (signal[start + i]);

        peak = std::max (peak, std::abs (sum));
    }

    return 20.0 * std::log10 (peak / overPeak);
}

/** The largest step from one sample to the next. */
inline double largestStep (std::span<const float> signal)
{
    auto largest = 0.0;

    for (std::size_t n = 1; n < signal.size(); ++n)
        largest = std::max (largest, std::abs (static_cast<double> (signal[n]) - static_cast<double> (signal[n - 1])));

    return largest;
}
} // namespace kestreleq::test
