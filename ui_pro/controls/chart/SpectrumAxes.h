#pragma once

#include <juce_graphics/juce_graphics.h>

#include <cstddef>

namespace quillon::ui_pro::controls
{

constexpr float silentDb = -83.75f; // a spectrum that nowhere exceeds it is silent

/** The place of a frequency in Hz on a logarithmic axis: 20 Hz at the area's left edge, 20 kHz at its right one. What
    is not a positive number stands at the left. */
float frequencyToX (double frequency, juce::Rectangle<float> area);

/** The place of a level: minDb at the area's bottom, maxDb at its top; what is no number stands at the bottom. */
float dbToY (float db, juce::Rectangle<float> area, float minDb, float maxDb);

/** The frequency in Hz of bin i of n, which are spaced logarithmically from 20 Hz to 20 kHz. */
double binFrequency (std::size_t i, std::size_t n);

/** Whether no value is a level that can be seen; values in dB. */
bool isSilent (const float* values, std::size_t n);

/** A gain in dB as it is shown at a frequency: faded out from 18 to 20 kHz, within -18 to +18 dB; 0 when not finite. */
float shownGain (float db, double frequency);

/** A gain in dB as it is shown where only boosts count: as shownGain, but within 0 to 18 dB. */
float shownGainMagnitude (float db, double frequency);

} // namespace quillon::ui_pro::controls
