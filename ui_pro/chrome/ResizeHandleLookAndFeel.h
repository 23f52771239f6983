#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::chrome
{

/** Draws the window's corner resizer: a dot in the corner and two diagonal strokes. */
class ResizeHandleLookAndFeel final : public juce::LookAndFeel_V4
{
public:
    void drawCornerResizer (juce::Graphics& g, int width, int height, bool isMouseOver, bool isMouseDragging) override;
};

} // namespace quillon::ui_pro::chrome
