#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** The grip in the window's lower right corner. */
struct ResizeHandleTokens
{
    int size = 18;
    float inset = 3.0f;
    float lineSpacing = 5.0f;
    float lineWidth = 1.25f;

    juce::Colour idle { 0x887f8a92 };
    juce::Colour mouseOver { 0xb09aa6ae };
    juce::Colour dragging { 0x99f67f2d };
};

} // namespace quillon::ui_pro::style
