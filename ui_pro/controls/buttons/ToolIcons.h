#pragma once

#include "ui_pro/primitives/ButtonLook.h"

namespace quillon::ui_pro::controls
{

enum class ToolIcon
{
    undo,
    redo,
    copy,
    paste,
    menu,
    externalLink,
    save,
    mail,
    mailCopy,
    reset,
    folder,
    book,
    start,
    close
};

/** Strokes an icon in the current colour, fitted into the area and centred. */
void drawToolIcon (juce::Graphics& g, ToolIcon icon, juce::Rectangle<float> area);

/** An icon's strokes as a shape to fill. */
juce::Path toolIconShape (ToolIcon icon);

/** The plate of a tool that shows an icon or a letter, and the colour for what is drawn on it. */
void paintToolPlate (juce::Graphics& g, juce::Rectangle<int> area, const primitives::ButtonLook& look);

} // namespace quillon::ui_pro::controls
