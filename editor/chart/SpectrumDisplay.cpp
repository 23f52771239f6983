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
constexpr double painterSpan = 1000.0; // from the painter's first frequency to its last

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
        bool traceMoved = painterLevels[trace].empty();

        for (std::size_t i = 0; i < levels.size(); ++i)
        {
            const auto level = std::isfinite (levels[i]) ? levels[i] : floorLevel;
            auto& shown = traces[trace][i];
            const auto next = level > shown ? level : std::max (shown - fall, level);
            traceMoved = traceMoved || std::max (next, floorLevel) != std::max (shown, floorLevel);
            shown = next;
        }

        if (traceMoved)
            resample (trace);

        moved = moved || traceMoved;
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

    for (std::size_t i = 0; i < numPainterBins; ++i)
    {
        const auto frequency = lowestFrequency * std::pow (painterSpan, static_cast<double> (i) / (numPainterBins - 1));
        const auto part = std::log (frequency / lowestFrequency) / std::log (spanOf (rate));
        const auto last = static_cast<double> (count - 1);
        positions[i] = frequency > rate / 2.0
            ? -1.0f
            : static_cast<float> (std::clamp (part * static_cast<double> (count) - 0.5, 0.0, last));
    }

    // What was resampled for other bins is out of date.
    for (auto& levels : painterLevels)
        levels.clear();
}

void SpectrumDisplay::resample (std::size_t trace)
{
    const auto& levels = traces[trace];
    auto& resampled = painterLevels[trace];
    resampled.resize (numPainterBins);

    for (std::size_t i = 0; i < numPainterBins; ++i)
    {
        const auto below = static_cast<std::size_t> (std::max (positions[i], 0.0f));
        const auto above = std::min (below + 1, levels.size() - 1);
        const auto fraction = positions[i] - static_cast<float> (below);
        resampled[i] = positions[i] < 0.0f ? floorLevel
                                           : std::max (std::lerp (levels[below], levels[above], fraction), floorLevel);
    }
}

std::size_t SpectrumDisplay::painterBinAt (double frequency)
{
    const auto part = std::log (frequency / lowestFrequency) / std::log (painterSpan);
    return static_cast<std::size_t> (std::lround (std::clamp (part, 0.0, 1.0) * (numPainterBins - 1)));
}

} // namespace kestreleq
