#include "editor/chart/SpectrumDisplay.h"

#include <juce_core/juce_core.h>

#include <algorithm>
#include <cmath>

namespace kestreleq
{
namespace
{

constexpr double fallRate = 24.0; // dB per second
constexpr double lowestFrequency = 20.0;
constexpr double usualRate = 48000.0;

/** How many times its width the axis of the bins grows from its first to its last frequency. */
double spanOf (double sampleRate)
{
    return sampleRate / 2.0 / lowestFrequency;
}

} // namespace

SpectrumDisplay::SpectrumDisplay()
    : clock ([] { return juce::Time::getMillisecondCounterHiRes(); })
{
}

bool SpectrumDisplay::refresh (const analysis::SpectrumAnalyser& analyser)
{
    std::array<std::span<const float>, numTraces> views;

    for (std::size_t trace = 0; trace < numTraces; ++trace)
    {
        if (! analyser.hasData (trace))
            continue;

        snapshot[trace].resize (analyser.numPoints());
        analyser.copyCurve (trace, snapshot[trace]);
        views[trace] = snapshot[trace];
    }

    return refresh (views, analyser.sampleRate());
}

bool SpectrumDisplay::refresh (const std::array<std::span<const float>, numTraces>& snapshots, double sampleRate)
{
    const auto now = clock();
    const auto fall = lastRefresh < 0.0 ? 0.0f : static_cast<float> ((now - lastRefresh) / 1000.0 * fallRate);
    lastRefresh = now;
    bool moved = false;

    for (std::size_t trace = 0; trace < numTraces; ++trace)
    {
        const auto levels = snapshots[trace].first (std::min (snapshots[trace].size(), maxBins));

        if (levels.empty())
            continue;

        placeBins (levels.size(), sampleRate);
        traces[trace].resize (levels.size(), floorLevel);

        for (std::size_t i = 0; i < levels.size(); ++i)
        {
            const auto level = std::isfinite (levels[i]) ? levels[i] : floorLevel;
            auto& shown = traces[trace][i];
            const auto next = level > shown ? level : std::max (shown - fall, level);
            moved = moved || std::max (next, floorLevel) != std::max (shown, floorLevel);
            shown = next;
        }
    }

    return moved;
}

void SpectrumDisplay::placeBins (std::size_t count, double sampleRate)
{
    const auto sound = std::isfinite (sampleRate) && sampleRate > 0.0 ? sampleRate : usualRate;

    if (count == frequencies.size() && sound == rate)
        return;

    rate = sound;
    frequencies.assign (count, static_cast<float> (lowestFrequency));

    if (count > 1)
        for (std::size_t i = 0; i < count; ++i)
            frequencies[i] = static_cast<float> (lowestFrequency *
                std::pow (spanOf (rate), (static_cast<double> (i) + 0.5) / static_cast<double> (count)));
}

float SpectrumDisplay::levelAt (std::size_t trace, double frequency) const
{
    const auto& levels = traces[trace];

    if (levels.empty() || frequency > rate / 2.0)
        return floorLevel;

    const auto last = static_cast<double> (levels.size() - 1);
    const auto part = std::log (frequency / lowestFrequency) / std::log (spanOf (rate));
    const auto bin = std::clamp (part * static_cast<double> (levels.size()) - 0.5, 0.0, last);
    const auto below = static_cast<std::size_t> (bin);
    const auto above = std::min (below + 1, levels.size() - 1);

    return std::max (std::lerp (levels[below], levels[above], static_cast<float> (bin - std::floor (bin))), floorLevel);
}

} // namespace kestreleq
