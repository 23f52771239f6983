#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** What panels and cards are filled with, and what charts draw on theirs. */
struct SurfaceTokens
{
    juce::Colour sidePanel { 0xff181c21 };
    juce::Colour lanePanel { 0xff12161a };
    juce::Colour card { 0xff0d1114 };

    juce::Colour spectrumZeroLine { 0xff6f777b };
    juce::Colour spectrumGridLine { 0xff4a5256 };
    juce::Colour responseZeroLine { 0x14ffffff };
    juce::Colour responseGridLine { 0x08ffffff };
};

} // namespace quillon::ui_pro::style
