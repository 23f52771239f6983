#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** What the level meters share. Their warning colours are the palette's yellow and red. */
struct MeterTokens
{
    juce::Colour trough { 0xff050708 };
    juce::Colour unlit { 0xff0c1014 };
    juce::Colour stripBar { 0xff444b4d };
    juce::Colour smallBar { 0xff6a7178 };
    juce::Colour gainReduction { 0xffff665f };
    juce::Colour input { 0xff5d666b }; // of everything that shows an input
    float troughRadius = 2.0f;
    float stripTroughMargin = 2.0f;
    float smallTroughMargin = 1.5f;

    float highlightAlpha = 0.1f; // of white, along the edge towards which a bar grows
    float highlightShare = 0.3f; // of a segment's thickness, but at least a pixel

    float titleSize = 10.5f;
    float scaleSize = 10.0f;
    float captionSize = 10.0f;
    float readoutSize = 9.5f;
};

} // namespace quillon::ui_pro::style
