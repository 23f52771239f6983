#include "engine/dsp/BandWeights.h"

#include <cstddef>

namespace kestreleq::dsp
{

double piecewiseLinear (std::span<const double> points, double value)
{
    if (points.empty())
        return 0.0;

    if (! (value > 0.0))
        return points.front();

    if (value >= 1.0)
        return points.back();

    const auto position = value * static_cast<double> (points.size() - 1);
    const auto index = static_cast<std::size_t> (position);
    const auto fraction = position - static_cast<double> (index);

    return points[index] + fraction * (points[index + 1] - points[index]);
}

} // namespace kestreleq::dsp
