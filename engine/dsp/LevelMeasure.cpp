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

bool wantsMidSide (bool link, bool midSide)
{
    return midSide && ! link;
}

LevelPair levelsOf (const simd::PowerSums& sums, int numSamples, bool link)
{
    const auto first = std::sqrt (sums.first / numSamples);
    const auto second = std::sqrt (sums.second / numSamples);

    if (link)
    {
        const auto level = toDecibels ((first + second) * 0.5);
        return { level, level };
    }

    return { toDecibels (first), toDecibels (second) };
}

float correlationOf (const simd::PowerSums& sums)
{
    const auto scale = std::sqrt (sums.first * sums.second);

    if (! (scale > 1e-12) || ! std::isfinite (scale))
        return 0.0f;

    return static_cast<float> (std::clamp (sums.product / scale, -1.0, 1.0));
}

} // namespace

LevelPair measureLevels (
    const simd::Kernels& kernels, const float* left, const float* right, int numSamples, bool link, bool midSide)
{
    const auto measure = wantsMidSide (link, midSide) ? kernels.measureMidSide : kernels.measure;
    return levelsOf (measure (left, right, numSamples), numSamples, link);
}

OutputMeasure measureOutput (
    const simd::Kernels& kernels, const float* left, const float* right, int numSamples, bool link, bool midSide)
{
    const auto sums = kernels.measure (left, right, numSamples);
    const auto levels = wantsMidSide (link, midSide) ? measureLevels (kernels, left, right, numSamples, link, midSide)
                                                     : levelsOf (sums, numSamples, link);
    return { levels, correlationOf (sums) };
}

} // namespace kestreleq::dsp
