#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** The small tools of the header. A pair is two buttons side by side on one surface. */
struct HeaderToolTokens
{
    struct Pair
    {
        int partWidth;
        int height;
        int gap;

        constexpr int width() const { return 2 * partWidth + gap; }
    };

    Pair undoRedo { 36, 32, 6 };
    Pair copyPaste { 20, 32, 4 };
    Pair abCompare { 28, 32, 14 };
    juce::Rectangle<int> menu { 38, 32 };
};

/** The list that the header's menu opens. */
struct MenuTokens
{
    int minimumWidth = 196;
    int maximumWidth = 420;
    int padding = 6;    // around the rows
    int textInset = 12; // within a row
    int markWidth = 26; // at the right of a row, for the sign of a link
    int rowHeight = 30;
    int headingHeight = 26;
    int separatorHeight = 11;
    int gapToButton = 4;
    int windowMargin = 6;

    float textSize = 15.0f;
    float headingSize = 11.0f;
    float cornerRadius = 8.0f;
    float rowRadius = 4.0f;

    /** Window pixels per design pixel, at least: in a small window the list stays readable. */
    float minimumScale = 0.8f;

    juce::Colour surface { 0xfa151b20 };
    juce::Colour edge { 0xff3a4650 };
    juce::Colour rowHover { 0xff2a343c };
    juce::Colour rowPressed { 0xff1d252b };
    juce::Colour shadow { 0x99000000 };
};

} // namespace quillon::ui_pro::style
