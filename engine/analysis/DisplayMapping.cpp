#include "engine/analysis/DisplayMapping.h"

#include "engine/analysis/SpectrumEstimator.h"

#include <algorithm>
#include <cmath>

namespace kestreleq::analysis
{
namespace
{

constexpr double lowestFrequency = 20.0; // Hz

} // namespace

void DisplayMapping::prepare (double sampleRate, std::size_t frameLength, std::size_t numPoints)
{
    const auto bins = frameLength / 2 + 1;
    const auto span = sampleRate * 0.5 / lowestFrequency;
    const auto binAt = [&] (double point)
    {
        const auto frequency = lowestFrequency * std::pow (span, point / static_cast<double> (numPoints));
        return frequency * static_cast<double> (frameLength) / sampleRate;
    };
    const auto limited = [] (double bin, std::size_t least, std::size_t greatest) {
        return static_cast<std::size_t> (std::clamp (bin, static_cast<double> (least), static_cast<double> (greatest)));
    };

    points.resize (numPoints);

    for (std::size_t i = 0; i < numPoints; ++i)
    {
        const auto position = static_cast<double> (i);
        const auto low = limited (std::floor (binAt (position)), 0, bins - 1);
        const auto high = limited (std::ceil (binAt (position + 1.0)), low + 1, bins);

        if (high - low >= 3)
        {
            points[i] = { low, high, 0.0f, false };
            continue;
        }

        const auto centre = binAt (position + 0.5);
        const auto lower = limited (centre, 0, bins - 1);
        const auto fraction = static_cast<float> (centre - static_cast<double> (lower));
        points[i] = { lower, std::min (lower + 1, bins - 1), fraction, true };
    }
}

void DisplayMapping::map (std::span<const float> spectrum, std::span<float> curve) const
{
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const auto& point = points[i];

        if (point.interpolated)
        {
            curve[i] = spectrum[point.first] + point.fraction * (spectrum[point.end] - spectrum[point.first]);
            continue;
        }

        auto greatest = spectrumFloor;

        for (auto k = point.first; k < point.end; ++k)
            greatest = std::max (greatest, spectrum[k]);

        curve[i] = greatest;
    }
}

} // namespace kestreleq::analysis
