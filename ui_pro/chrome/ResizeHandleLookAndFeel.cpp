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

    juce::Path strokes;

    for (int i = 1; i < 3; ++i)
    {
        const auto reach = tokens.lineSpacing * static_cast<float> (i);
        strokes.startNewSubPath (corner.translated (-reach, 0.0f));
        strokes.lineTo (corner.translated (0.0f, -reach));
    }

    g.setColour (isMouseDragging ? tokens.dragging : isMouseOver ? tokens.mouseOver : tokens.idle);
    g.strokePath (
        strokes, juce::PathStrokeType (tokens.lineWidth, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));

    // The first stroke has no length: what is left of it are its round caps, which the framework would leave out.
    g.fillEllipse (juce::Rectangle<float> (tokens.lineWidth, tokens.lineWidth).withCentre (corner));
}

} // namespace quillon::ui_pro::chrome
