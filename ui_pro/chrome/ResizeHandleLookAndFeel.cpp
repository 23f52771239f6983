#include "ui_pro/chrome/ResizeHandleLookAndFeel.h"

#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::chrome
{

void ResizeHandleLookAndFeel::drawCornerResizer (
    juce::Graphics& g, int width, int height, bool isMouseOver, bool isMouseDragging)
{
    const auto& tokens = style::Theme::get().resizeHandle;
    const juce::Point<float> corner (
        static_cast<float> (width) - tokens.inset, static_cast<float> (height) - tokens.inset);

    // The first line has no length: its round caps are the dot in the very corner.
    juce::Path grip;

    for (int i = 0; i < 3; ++i)
    {
        const auto reach = tokens.lineSpacing * static_cast<float> (i);
        grip.startNewSubPath (corner.translated (-reach, 0.0f));
        grip.lineTo (corner.translated (0.0f, -reach));
    }

    g.setColour (isMouseDragging ? tokens.dragging : isMouseOver ? tokens.mouseOver : tokens.idle);
    g.strokePath (
        grip, juce::PathStrokeType (tokens.lineWidth, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
}

} // namespace quillon::ui_pro::chrome
