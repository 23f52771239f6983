#pragma once

#include <span>

namespace kestreleq::dsp
{

/** The piecewise-linear map through points that lie evenly from value 0 to value 1; the first point below 0 (and for a
    value that is no number), the last from 1 on, 0 when there are no points. */
double piecewiseLinear (std::span<const double> points, double value);

} // namespace kestreleq::dsp
