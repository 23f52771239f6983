#include "engine/dsp/GainRider.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace kestreleq::dsp
{
namespace
{

constexpr double leastGain = -80.0;
constexpr double greatestGain = 24.0;
constexpr double leastLevel = -100.0;
constexpr double releaseSeconds = 0.005;
constexpr double gateLevel = -80.0; // the gain holds still at and below this level

/** Limited, or the fallback when not finite. */
double limited (double value, double least, double greatest, double fallback)
{
    return std::isfinite (value) ? std::clamp (value, least, greatest) : fallback;
}

/** Adds the squares of the samples that are finite, and counts them. power is the sum of all squares: the squares of
    finite samples cannot add up to anything else. */
void addPower (const float* samples, int numSamples, double power, double& sum, std::int64_t& count)
{
    if (std::isfinite (power))
    {
        sum += power;
        count += numSamples;
        return;
    }

    for (int n = 0; n < numSamples; ++n)
    {
        const auto x = static_cast<double> (samples[n]);

        if (std::isfinite (x))
        {
            sum += x * x;
            ++count;
        }
    }
}

void applyGain (float& sample, float factor)
{
    const auto y = sample * factor;
    sample = std::abs (y) <= std::numeric_limits<float>::max() ? y : 0.0f;
}

/** A piece of a straight line between two linear gains: numSamples of it after those that are done, of length in all.
 */
void applyLine (std::span<float* const> channels, int numSamples, double from, double to, int done, int length)
{
    const auto slope = (to - from) / length;

    for (auto* channel : channels)
        for (int n = 0; n < numSamples; ++n)
            applyGain (channel[n], static_cast<float> (from + slope * (done + n + 1)));
}

} // namespace

void GainRider::prepare (double newSampleRate, int newNumChannels)
{
    sampleRate = std::isfinite (newSampleRate) && newSampleRate >= 8000.0 ? newSampleRate : 48000.0;
    numChannels = std::clamp (newNumChannels, 1, 64);
    releaseLength = static_cast<int> (std::min (1e9, std::round (releaseSeconds * sampleRate)));
    reset();
}

void GainRider::setTarget (double decibels)
{
    target = limited (decibels, -60.0, 0.0, -18.0);
}

void GainRider::setRate (double decibelsPerSecond)
{
    rate = limited (decibelsPerSecond, 0.0, 60.0, 6.0);
}

void GainRider::reset (double decibels)
{
    setGain (limited (decibels, leastGain, greatestGain, 0.0));
    applied = linear;
    released = releaseLength;
}

void GainRider::setGain (double decibels)
{
    if (decibels == gain)
        return;

    gain = decibels;
    linear = std::pow (10.0, gain / 20.0);
}

double GainRider::levelOf (std::span<float* const> channels, int numSamples) const
{
    double sum = 0.0;
    std::int64_t count = 0;

    for (std::size_t i = 0; i < channels.size(); i += 2)
    {
        const auto* const first = channels[i];
        const auto* const second = i + 1 < channels.size() ? channels[i + 1] : nullptr;
        const auto power = kernels.measure (first, second != nullptr ? second : first, numSamples);

        addPower (first, numSamples, power.first, sum, count);

        if (second != nullptr)
            addPower (second, numSamples, power.second, sum, count);
    }

    const auto rms = count > 0 ? std::sqrt (sum / static_cast<double> (count)) : 0.0;

    return rms > 0.0 ? std::max (leastLevel, 20.0 * std::log10 (rms)) : leastLevel;
}

void GainRider::process (std::span<float* const> channels, int numSamples)
{
    channels = channels.first (std::min (channels.size(), static_cast<std::size_t> (numChannels)));

    if (channels.empty() || numSamples < 1 ||
        static_cast<std::int64_t> (channels.size()) * numSamples > std::numeric_limits<std::int32_t>::max())
        return;

    if (released < releaseLength)
    {
        continueRelease (channels, numSamples);
        return;
    }

    measuredLevel = levelOf (channels, numSamples);

    if (! frozen && measuredLevel > gateLevel)
    {
        const auto desired = std::clamp (target - measuredLevel, leastGain, greatestGain);
        const auto step = numSamples / sampleRate * rate;
        setGain (std::clamp (gain + std::clamp (desired - gain, -step, step), leastGain, greatestGain));
    }

    if (applied != linear)
    {
        applyLine (channels, numSamples, applied, linear, 0, numSamples);
        applied = linear;
        return;
    }

    const auto factor = static_cast<float> (linear);

    for (auto* channel : channels)
        for (int n = 0; n < numSamples; ++n)
            applyGain (channel[n], factor);
}

void GainRider::release (std::span<float* const> channels, int numSamples)
{
    setGain (0.0);

    if (released == releaseLength && applied != linear)
        released = 0;

    continueRelease (channels, numSamples);
}

void GainRider::continueRelease (std::span<float* const> channels, int numSamples)
{
    const auto length = std::min (numSamples, releaseLength - released);

    if (length < 1)
        return;

    applyLine (channels, length, applied, linear, released, releaseLength);
    released += length;

    if (released == releaseLength)
        applied = linear;
}

} // namespace kestreleq::dsp
