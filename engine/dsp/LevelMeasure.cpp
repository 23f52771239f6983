#include "engine/dsp/LevelMeasure.h"

#include <algorithm>
#include <cmath>

namespace kestreleq::dsp
{
namespace
{

float toDecibels (double rms)
{
    if (! (rms > 0.0) || ! std::isfinite (rms))
        return silenceLevel;

    return std::max (silenceLevel, static_cast<float> (20.0 * std::log10 (rms)));
}

/** RMS of scale * (a + sign * b). */
double rmsOfMix (const float* a, const float* b, int numSamples, double sign)
{
    double sum = 0.0;

    for (int n = 0; n < numSamples; ++n)
    {
        const auto x = (static_cast<double> (a[n]) + sign * static_cast<double> (b[n])) * 0.5;
        sum += x * x;
    }

    return std::sqrt (sum / numSamples);
}

double rmsOf (const float* samples, int numSamples)
{
    double sum = 0.0;

    for (int n = 0; n < numSamples; ++n)
        sum += static_cast<double> (samples[n]) * static_cast<double> (samples[n]);

    return std::sqrt (sum / numSamples);
}

} // namespace

std::array<float, 2> measureLevels (const float* left, const float* right, int numSamples, bool link, bool midSide)
{
    if (midSide && ! link)
        return { toDecibels (rmsOfMix (left, right, numSamples, 1.0)),
            toDecibels (rmsOfMix (left, right, numSamples, -1.0)) };

    const auto rmsLeft = rmsOf (left, numSamples);
    const auto rmsRight = rmsOf (right, numSamples);

    if (link)
    {
        const auto level = toDecibels ((rmsLeft + rmsRight) * 0.5);
        return { level, level };
    }

    return { toDecibels (rmsLeft), toDecibels (rmsRight) };
}

float measureCorrelation (const float* left, const float* right, int numSamples)
{
    double product = 0.0;
    double leftSquare = 0.0;
    double rightSquare = 0.0;

    for (int n = 0; n < numSamples; ++n)
    {
        const auto l = static_cast<double> (left[n]);
        const auto r = static_cast<double> (right[n]);
        product += l * r;
        leftSquare += l * l;
        rightSquare += r * r;
    }

    const auto scale = std::sqrt (leftSquare * rightSquare);

    if (! (scale > 1e-12) || ! std::isfinite (scale))
        return 0.0f;

    return static_cast<float> (std::clamp (product / scale, -1.0, 1.0));
}

} // namespace kestreleq::dsp
