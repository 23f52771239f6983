#include "engine/dsp/Crossfade.h"

#include <algorithm>
#include <cmath>
#include <limits>

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

void Crossfade::advance (float* shares, int numSamples)
{
    const auto whole = static_cast<float> (length);

    for (int n = 0; n < numSamples; ++n)
        shares[n] = static_cast<float> (position + n + 1) / whole;

    if (curved)
        for (int n = 0; n < numSamples; ++n)
            shares[n] = raisedCosine (shares[n]);

    position += numSamples;
}

void mixInto (float* other, const float* one, const float* shares, int numSamples)
{
    for (int n = 0; n < numSamples; ++n)
    {
        const auto y = one[n] + shares[n] * (other[n] - one[n]);
        other[n] = std::abs (y) <= std::numeric_limits<float>::max() ? y : 0.0f;
    }
}

} // namespace kestreleq::dsp
