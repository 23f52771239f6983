#include "engine/dsp/Crossfade.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace kestreleq::dsp
{
namespace
{

constexpr double valueSeconds = 0.005;
constexpr double switchSeconds = 0.010;
constexpr double longestFade = 1e9; // samples

int samplesOf (double seconds, double sampleRate)
{
    return std::max (1, static_cast<int> (std::min (longestFade, std::round (seconds * sampleRate))));
}

/** 0.5 - 0.5 cos (pi t) for t of 0 to 1, to 6e-8: the series of the sine about the middle. */
float raisedCosine (float t)
{
    const auto x = t - 0.5f;
    const auto square = x * x;
    const auto sine = x *
        (3.14159265f +
            square *
                (-5.16771278f +
                    square *
                        (2.55016404f + square * (-0.599264529f + square * (0.0821458866f - square * 0.00737043094f)))));

    return 0.5f + 0.5f * sine;
}

/** By its bits, which compiles to a loop without branches. */
float finiteOrZero (float y)
{
    constexpr std::uint32_t exponent = 0x7f800000u;
    const auto bits = std::bit_cast<std::uint32_t> (y);
    return std::bit_cast<float> ((bits & exponent) != exponent ? bits : 0u);
}

} // namespace

void Crossfade::prepare (double sampleRate)
{
    valueLength = samplesOf (valueSeconds, sampleRate);
    switchLength = samplesOf (switchSeconds, sampleRate);
    stop();
}

void Crossfade::start (SettingsChange change, int blockLength)
{
    curved = change == SettingsChange::switches;
    length = curved ? switchLength : std::max (blockLength, valueLength);
    position = 0;
}

void Crossfade::mix (const StereoPointers<const float>& one, const StereoPointers<float>& other, int numSamples)
{
    const auto mixByShare = [&, step = 1.0f / static_cast<float> (length), next = position + 1] (const auto& curve)
    {
        const auto& [oldLeft, oldRight] = one;
        const auto& [left, right] = other;

        for (int n = 0; n < numSamples; ++n)
        {
            const auto share = curve (static_cast<float> (next + n) * step);
            left[n] = finiteOrZero (oldLeft[n] + share * (left[n] - oldLeft[n]));
            right[n] = finiteOrZero (oldRight[n] + share * (right[n] - oldRight[n]));
        }
    };

    if (curved)
        mixByShare ([] (float t) { return raisedCosine (t); });
    else
        mixByShare ([] (float t) { return t; });

    position += numSamples;
}

} // namespace kestreleq::dsp
