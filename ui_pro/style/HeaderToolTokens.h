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

} // namespace quillon::ui_pro::style
