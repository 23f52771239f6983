#include "ui_pro/controls/chart/SpectrumAxes.h"

#include "ui_pro/controls/chart/ChartAxes.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr double lowestHz = 20.0;
constexpr double span = 1000.0; // highest frequency over lowest
constexpr double taperFromHz = 18000.0;
constexpr double taperWidthHz = 2000.0;
constexpr float largestGainDb = 18.0f;

} // namespace

float frequencyToX (double frequency, juce::Rectangle<float> area)
{
    return ChartAxes { .plot = area }.xFor (frequency);
}

float dbToY (float db, juce::Rectangle<float> area, float minDb, float maxDb)
{
    const auto wide = [] (float level) { return static_cast<double> (level); };
    return ChartAxes { .plot = area, .lowestDb = wide (minDb), .highestDb = wide (maxDb) }.yFor (wide (db));
}

double binFrequency (std::size_t i, std::size_t n)
{
    return n < 2 ? lowestHz : lowestHz * std::pow (span, static_cast<double> (i) / static_cast<double> (n - 1));
}

bool isSilent (const float* values, std::size_t n)
{
    return std::none_of (values, values + n, [] (float db) { return std::isfinite (db) && db > silentDb; });
}

float shownGain (float db, double frequency)
{
    if (! std::isfinite (db))
        return 0.0f;

    const auto fade = 1.0 - std::clamp ((frequency - taperFromHz) / taperWidthHz, 0.0, 1.0);
    return std::clamp (db * static_cast<float> (fade), -largestGainDb, largestGainDb);
}

float shownGainMagnitude (float db, double frequency)
{
    return std::max (shownGain (db, frequency), 0.0f);
}

} // namespace quillon::ui_pro::controls
