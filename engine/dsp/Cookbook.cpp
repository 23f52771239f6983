#include "engine/dsp/Cookbook.h"

#include <cmath>
#include <numbers>

namespace kestreleq::dsp
{
namespace
{

BiquadCoefficients normalised (double b0, double b1, double b2, double a0, double a1, double a2)
{
    return { b0 / a0, b1 / a0, b2 / a0, a1 / a0, a2 / a0 };
}

/** Both shelves: the high one is the low one with the sign of every cosine turned and its odd terms negated. */
BiquadCoefficients shelf (double amplitude, double cosine, double alpha, double sign)
{
    const auto a = amplitude;
    const auto c = sign * cosine;
    const auto slope = 2.0 * std::sqrt (a) * alpha;

    return normalised (a * ((a + 1.0) - (a - 1.0) * c + slope), sign * 2.0 * a * ((a - 1.0) - (a + 1.0) * c),
        a * ((a + 1.0) - (a - 1.0) * c - slope), (a + 1.0) + (a - 1.0) * c + slope,
        sign * -2.0 * ((a - 1.0) + (a + 1.0) * c), (a + 1.0) + (a - 1.0) * c - slope);
}

} // namespace

BiquadCoefficients cookbookSection (FilterType type, double frequency, double sampleRate, double q, double gain)
{
    const auto w0 = 2.0 * std::numbers::pi * frequency / sampleRate;
    const auto c = std::cos (w0);
    const auto s = std::sin (w0);
    const auto alpha = s / (2.0 * q);
    const auto a = std::pow (10.0, gain / 40.0);

    switch (type)
    {
        case FilterType::lowPass:
            return normalised ((1.0 - c) / 2.0, 1.0 - c, (1.0 - c) / 2.0, 1.0 + alpha, -2.0 * c, 1.0 - alpha);

        case FilterType::highPass:
            return normalised ((1.0 + c) / 2.0, -(1.0 + c), (1.0 + c) / 2.0, 1.0 + alpha, -2.0 * c, 1.0 - alpha);

        case FilterType::bandPass:
            return normalised (alpha, 0.0, -alpha, 1.0 + alpha, -2.0 * c, 1.0 - alpha);

        case FilterType::notch:
            return normalised (1.0, -2.0 * c, 1.0, 1.0 + alpha, -2.0 * c, 1.0 - alpha);

        case FilterType::allPass:
            return normalised (1.0 - alpha, -2.0 * c, 1.0 + alpha, 1.0 + alpha, -2.0 * c, 1.0 - alpha);

        case FilterType::peaking:
            return normalised (1.0 + alpha * a, -2.0 * c, 1.0 - alpha * a, 1.0 + alpha / a, -2.0 * c, 1.0 - alpha / a);

        case FilterType::lowShelf:
            return shelf (a, c, alpha, 1.0);

        case FilterType::highShelf:
            return shelf (a, c, alpha, -1.0);
    }

    return cookbookSection (FilterType::lowPass, frequency, sampleRate, q, gain); // a number that names no type
}

std::complex<double> responseAt (const BiquadCoefficients& section, double frequency, double sampleRate)
{
    const auto z1 = std::polar (1.0, -2.0 * std::numbers::pi * frequency / sampleRate);
    const auto z2 = z1 * z1;

    return (section.b0 + section.b1 * z1 + section.b2 * z2) / (1.0 + section.a1 * z1 + section.a2 * z2);
}

} // namespace kestreleq::dsp
