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
        if (analyser.hasData (trace))
        {
            snapshot[trace].resize (analyser.numPoints());
            analyser.copyCurve (trace, snapshot[trace]);
        }
        else
        {
            snapshot[trace].assign (traces[trace].size(), floorLevel);
        }

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

        const auto newTrace = placeBins (levels.size(), sampleRate) || traces[trace].empty();
        traces[trace].resize (levels.size(), floorLevel);
        moved = moved || newTrace;

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

void SpectrumDisplay::clear()
{
    for (auto& levels : traces)
        std::fill (levels.begin(), levels.end(), floorLevel);
}

bool SpectrumDisplay::placeBins (std::size_t count, double sampleRate)
{
    const auto sound = std::isfinite (sampleRate) && sampleRate > 0.0 ? sampleRate : usualRate;

    if (count == frequencies.size() && sound == rate)
        return false;

    rate = sound;
    frequencies.assign (count, static_cast<float> (lowestFrequency));

    if (count > 1)
        for (std::size_t i = 0; i < count; ++i)
            frequencies[i] = static_cast<float> (lowestFrequency *
                std::pow (rate / 2.0 / lowestFrequency, (static_cast<double> (i) + 0.5) / static_cast<double> (count)));

    // What was shown at other frequencies is out of date.
    for (auto& levels : traces)
        levels.clear();

    return true;
}

} // namespace kestreleq
