#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** The core colours, ARGB. */
struct Palette
{
    juce::Colour backgroundMid { 0xff0a0d0f };
    juce::Colour backgroundTop { 0xff10161a };
    juce::Colour backgroundBottom { 0xff050708 };
    juce::Colour backgroundGlow { 0x0f50788c }; // drawn with an alpha of its own
    juce::Colour surface1 { 0xff101418 };
    juce::Colour surface2 { 0xff151b20 };
    juce::Colour surface3 { 0xff07090b };
    juce::Colour scrim1 { 0xeb0c1114 };
    juce::Colour scrim2 { 0xf20e1418 };
    juce::Colour scrim3 { 0xf5121414 };
    juce::Colour whiteWash { 0x09ffffff };
    juce::Colour outline { 0xff252d34 };
    juce::Colour outlineStrong { 0xff3a4650 };
    juce::Colour paleTranslucent { 0x40b4c8d2 };
    juce::Colour accentTranslucent { 0xbff67f2d };
    juce::Colour greyTranslucent { 0x1a646e73 };
    juce::Colour shadowStrong { 0x73000000 };
    juce::Colour shadowSoft { 0x4d000000 };
    juce::Colour textPrimary { 0xfff2f4f6 };
    juce::Colour textSecondary { 0xffaab2ba };
    juce::Colour textMuted { 0xff68727d };
    juce::Colour textDisabled { 0xff4a535b };
    juce::Colour textBright { 0xffd9e0e6 };
    juce::Colour accent { 0xfff67f2d };
    juce::Colour accentAlt { 0xfff67f2d };
    juce::Colour accentWash { 0x33f67f2d };
    juce::Colour yellow { 0xffffc857 };
    juce::Colour red { 0xffff4d4f };
    juce::Colour green { 0xff5bd78f };
};

} // namespace quillon::ui_pro::style
