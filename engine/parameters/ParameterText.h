#pragma once

#include "engine/parameters/ParameterTable.h"

#include <juce_core/juce_core.h>

namespace kestreleq
{

/** The two conversions between a parameter's normalised value and its text. Both are pure functions, callable on any
    thread. The maximum length is ignored. */
struct TextConversion
{
    juce::String (*toText) (float value, int maximumLength);
    float (*toValue) (const juce::String& text);
};

/** The conversions of one kind of parameter.

    Values to text: band gain -5.0 to +5.0, stage gain -9.0 dB to +9.0 dB, trim gain -12.0 dB to +12.0 dB, air amount
    0.0 to 1.0, air step 2.5K to 40K, and a word for each stepped kind. Text to values: the unit may be left out, text
    that is no number reads as 0, and everything is limited to 0..1. */
const TextConversion& textConversion (TextKind kind);

/** The value limited to 0..1; 0 when it is not finite. */
float clampNormalised (double value);

} // namespace kestreleq
