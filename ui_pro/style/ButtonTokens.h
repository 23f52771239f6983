#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** The plate that buttons are drawn on. */
struct ButtonTokens
{
    float cornerRadius = 5.0f;
    juce::Colour plateTop { 0xff262d34 };
    juce::Colour plateBottom { 0xff1a1f24 };
    juce::Colour plateOn { 0xff14181c }; // under the accent
    juce::Colour edge { 0xff68727d };
    juce::Colour edgeDisabled { 0xff30383f };
};

} // namespace quillon::ui_pro::style
