#include "tests/support/MotionMeasures.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <stdexcept>
#include <vector>

namespace kestreleq::test
{
namespace
{
constexpr auto pi = std::numbers::pi;

/** Recursive, of a power of two. */
void transform (std::vector<std::complex<double>>& values)
{
    const auto half = values.size() / 2;

    if (half == 0)
        return;

    std::vector<std::complex<double>> even (half), odd (half);

    for (std::size_t i = 0; i < half; ++i)
    {
        even[i] = values[2 * i];
        odd[i] = values[2 * i + 1];
    }

    transform (even);
    transform (odd);

    for (std::size_t i = 0; i < half; ++i)
    {
        const auto turned = std::polar (1.0, -pi * static_cast<double> (i) / static_cast<double> (half)) * odd[i];
        values[i] = even[i] + turned;
        values[i + half] = even[i] - turned;
    }
}

/** Blackman-Harris over 0 to 1: what it lets through elsewhere lies 92 dB down. */
double window (double x)
{
    return 0.35875 - 0.48829 * std::cos (2.0 * pi * x) + 0.14128 * std::cos (4.0 * pi * x) -
        0.01168 * std::cos (6.0 * pi * x);
}
} // namespace

double highestProductDb (std::span<const float> signal, double frequency, double sampleRate)
{
    constexpr std::size_t size = 65536;

    if (signal.size() != size)
        throw std::invalid_argument ("highestProductDb wants 65536 samples");

    std::vector<std::complex<double>> spectrum (size);

    for (std::size_t n = 0; n < size; ++n)
        spectrum[n] = window (static_cast<double> (n) / size) * static_cast<double> (signal[n]);

    transform (spectrum);
    auto tone = 0.0, product = 0.0;

    for (std::size_t i = 0; i < size / 2; ++i)
    {
        const auto distance = std::abs (static_cast<double> (i) * sampleRate / size - frequency);
        auto& highest = distance > 40.0 ? product : tone;
        highest = std::max (highest, std::norm (spectrum[i]));
    }

    return 10.0 * std::log10 (product / tone);
}

double aboveSixKilohertzDb (std::span<const float> signal, double sampleRate, double overPeak)
{
    constexpr auto numTaps = 1023;
    constexpr auto middle = numTaps / 2;
    std::vector<double> taps (numTaps);

    for (auto i = 0; i < numTaps; ++i)
    {
        const auto x = 2.0 * pi * 6000.0 / sampleRate * (i - middle);
        const auto low = i == middle ? 12000.0 / sampleRate : std::sin (x) / (pi * (i - middle));
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

double largestStep (std::span<const float> signal)
{
    auto largest = 0.0;

    for (std::size_t n = 1; n < signal.size(); ++n)
        largest = std::max (largest, std::abs (static_cast<double> (signal[n]) - static_cast<double> (signal[n - 1])));

    return largest;
}
} // namespace kestreleq::test
