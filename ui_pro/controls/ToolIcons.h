#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::controls
{

enum class ToolIcon
{
    undo,
    redo,
    copy,
    paste,
    menu,
    externalLink
};

/** Strokes an icon in the current colour, fitted into the area and centred. */
void drawToolIcon (juce::Graphics& g, ToolIcon icon, juce::Rectangle<float> area);

} // namespace quillon::ui_pro::controls
