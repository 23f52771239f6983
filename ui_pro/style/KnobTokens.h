#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** Sizes of a knob, in design pixels. */
struct KnobTokens
{
    int preferredWidth = 86;
    int preferredHeight = 96;
    int paddingX = 2;
    int labelHeight = 16;
    int valueHeight = 18;
    int valueWidth = 42; // beside the knob
    int labelGap = 5;
    int valueGap = 1;
    int maxDiameter = 54;
    float dragDistance = 140.0f; // over the whole range
    float labelFontSize = 11.0f;
    float valueFontSize = 13.0f;
    juce::Colour track { 0xff5f6972 };
    juce::Colour trackDisabled { 0xff30383f };
    juce::Colour bodyTop { 0xff343c44 };
    juce::Colour bodyBottom { 0xff171b20 };
    juce::Colour disabledText { 0xff4a535b };
};

} // namespace quillon::ui_pro::style
