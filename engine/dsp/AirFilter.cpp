#include "engine/dsp/AirFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kestreleq::dsp
{
namespace
{

/** One measured point of an air setting: gains in dB, frequency in Hz, shape B the inverse square of the Q. */
struct AirPoint
{
    double preGain;
    double shapeA;
    double frequency;
    double shapeB;
};

/** Points at these amounts, linear in between. */
constexpr std::array<double, 4> amounts { 0.0, 0.25, 0.5, 1.0 };

using AirRow = std::array<AirPoint, amounts.size()>;

constexpr std::array<AirRow, AirFilter::numIndices> airTable { {
    { { { 0.0, 0.0, 48000.0, 0.0 }, { 0.0, 0.0, 48000.0, 0.0 }, { 0.0, 0.0, 48000.0, 0.0 },
        { 0.0, 0.0, 48000.0, 0.0 } } },
    { { { 0.0, 0.85, 11359.0, 0.85 }, { -0.25, 1.67, 11359.0, 1.62 }, { 0.26, 4.33, 11359.0, 3.45 },
        { 4.75, 15.89, 11359.0, 13.4 } } },
    { { { 0.0, 0.85, 22518.0, 0.85 }, { 0.04, 1.15, 22518.0, 1.23 }, { 0.45, 3.4, 22518.0, 4.5 },
        { 5.51, 14.16, 22518.0, 14.71 } } },
    { { { 0.0, 0.8, 25960.0, 0.8 }, { -0.12, 1.12, 25960.0, 0.98 }, { 0.46, 3.25, 25960.0, 2.58 },
        { 5.84, 13.07, 25960.0, 12.22 } } },
    { { { 0.0, 0.7, 29696.0, 0.7 }, { -0.25, 1.28, 29696.0, 3.2 }, { 0.28, 2.48, 29696.0, 0.86 },
        { 5.51, 10.29, 29696.0, 11.18 } } },
} };

AirPoint pointAt (const AirRow& row, double amount)
{
    std::size_t i = 0;

    while (i + 2 < amounts.size() && amount > amounts[i + 1])
        ++i;

    const auto t = std::min (1.0, (amount - amounts[i]) / (amounts[i + 1] - amounts[i]));

    return { std::lerp (row[i].preGain, row[i + 1].preGain, t), std::lerp (row[i].shapeA, row[i + 1].shapeA, t),
        std::lerp (row[i].frequency, row[i + 1].frequency, t), std::lerp (row[i].shapeB, row[i + 1].shapeB, t) };
}

} // namespace

int airIndexFor (float value)
{
    if (! std::isfinite (value))
        return 2;

    return static_cast<int> (std::lround (std::clamp (value, 0.0f, 1.0f) * 4.0f));
}

void AirFilter::prepare (double newSampleRate)
{
    sampleRate = newSampleRate;
    design();
}

void AirFilter::setAmount (float newAmount)
{
    if (! std::isfinite (newAmount))
        return;

    newAmount = std::clamp (newAmount, 0.0f, 1.0f);

    if (newAmount != amount)
    {
        amount = newAmount;
        design();
    }
}

void AirFilter::setIndex (int newIndex)
{
    newIndex = std::clamp (newIndex, 0, numIndices - 1);

    if (newIndex != index)
    {
        index = newIndex;
        design();
    }
}

void AirFilter::design()
{
    active = sampleRate > 0.0 && index > 0 && amount > 0.0f;

    if (! active)
        return;

    const auto& row = airTable[static_cast<std::size_t> (index)];
    const auto point = pointAt (row, static_cast<double> (amount));
    const auto frequency = std::min (point.frequency, 0.9 * 0.5 * sampleRate);

    // Undoes the bilinear transform's cramping of the lower skirt.
    const auto widening =
        (std::numbers::pi * point.frequency / sampleRate) / std::tan (std::numbers::pi * frequency / sampleRate);
    const auto q = std::clamp (widening / std::sqrt (point.shapeB), 0.01, 100.0);

    // Measured from the row's own rest, so that the first touch of the amount starts from flat.
    const auto gain = std::clamp (point.shapeA - row.front().shapeA, -60.0, 36.0);

    preGain = std::pow (10.0, point.preGain / 20.0);
    section = cookbookSection (FilterType::peaking, frequency, sampleRate, q, gain);
}

std::complex<double> AirFilter::response (double frequency) const
{
    return active ? preGain * responseAt (section, frequency, sampleRate) : 1.0;
}

} // namespace kestreleq::dsp
