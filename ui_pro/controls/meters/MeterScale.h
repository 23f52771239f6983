#pragma once

#include <juce_core/juce_core.h>

namespace quillon::ui_pro::controls
{

constexpr float meterFloorDb = -48.0f;
constexpr float meterCeilingDb = 12.0f;

/** A linear peak on the meters' scale, -48 to +12 dB; -48 for silence and for what is no number. */
float toDb (float linear);

/** How much of a bar a level fills, 0 to 1. */
float meterFraction (float db);

/** How many of a bar's segments a fraction of 0 to 1 lights. */
int litSegments (float fraction, int count);

/** The seconds from the update before to now, both in milliseconds; 0 when there was none. */
double secondsBetween (double lastUpdateMs, double nowMs);

/** The level to show next: a rise shows at once, a fall takes a second for 36 dB. */
float nextMeterLevel (float shownDb, float targetDb, double seconds);

/** A level with one decimal, or "-" at the scale's end. */
juce::String meterReadout (float db);

/** A level as a screen reader says it, with its unit; silence in words. */
juce::String spokenLevel (float db);

} // namespace quillon::ui_pro::controls
