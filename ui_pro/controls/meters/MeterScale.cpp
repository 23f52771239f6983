#include "ui_pro/controls/meters/MeterScale.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr double releaseDbPerSecond = 36.0;
constexpr float silenceBelowDb = -47.9f;

juce::String withOneDecimal (float db)
{
    const auto tenths = std::round (db * 10.0f) / 10.0f;
    return juce::String (tenths == 0.0f ? 0.0f : tenths, 1); // no "-0.0"
}

} // namespace

float toDb (float linear)
{
    if (! (linear > 1.0e-6f))
        return meterFloorDb;

    return std::clamp (20.0f * std::log10 (linear), meterFloorDb, meterCeilingDb);
}

float meterFraction (float db)
{
    return std::clamp ((db - meterFloorDb) / (meterCeilingDb - meterFloorDb), 0.0f, 1.0f);
}

int litSegments (float fraction, int count)
{
    return juce::roundToInt (std::round (std::clamp (fraction, 0.0f, 1.0f) * static_cast<float> (count)));
}

double secondsBetween (double lastUpdateMs, double nowMs)
{
    return lastUpdateMs > 0.0 ? std::max (nowMs - lastUpdateMs, 0.0) / 1000.0 : 0.0;
}

float nextMeterLevel (float shownDb, float targetDb, double seconds)
{
    return std::max (targetDb, static_cast<float> (static_cast<double> (shownDb) - releaseDbPerSecond * seconds));
}

juce::String meterReadout (float db)
{
    return db <= silenceBelowDb ? juce::String ("-") : withOneDecimal (db);
}

juce::String spokenLevel (float db)
{
    return db <= silenceBelowDb ? juce::String ("silent") : withOneDecimal (db) + " dB";
}

} // namespace quillon::ui_pro::controls
