#include "ui_pro/controls/presets/PresetDrawing.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls::presets
{

using style::Theme;

void drawFace (juce::Graphics& g, const juce::Path& shape, const PartState& state)
{
    const auto& palette = Theme::palette();
    const auto isLit = state.isEnabled && state.isHovered && ! state.isPressed;

    if (state.isEnabled)
    {
        const auto area = shape.getBounds();
        const auto top = state.isPressed ? palette.surface3 : palette.surface2.brighter (isLit ? 0.16f : 0.06f);
        const auto bottom = state.isPressed ? palette.surface1 : (isLit ? palette.surface2 : palette.surface1);
        g.setGradientFill (juce::ColourGradient::vertical (top, area.getY(), bottom, area.getBottom()));
        g.fillPath (shape);
    }

    g.setColour (state.isActive ? palette.accent : (isLit ? palette.textMuted : palette.outlineStrong));
    g.setOpacity (state.isEnabled ? 1.0f : 0.55f);
    g.strokePath (shape, juce::PathStrokeType (Theme::get().strokeWidth));
}

void drawWell (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius)
{
    primitives::fillPanel (g, r, Theme::palette().surface3, cornerRadius);
    primitives::drawInnerShadow (g, r, cornerRadius, 0.5f);
    g.setColour (Theme::palette().outline);
    g.drawRoundedRectangle (r.reduced (0.5f), cornerRadius, Theme::get().strokeWidth);
}

void drawLine (juce::Graphics& g, juce::Rectangle<float> r, const PartState& state)
{
    const auto& palette = Theme::palette();

    if (state.isActive || state.isPressed)
        primitives::fillPanel (g, r, palette.accentWash, 4.0f);

    if (state.isEnabled && state.isHovered)
        primitives::fillPanel (g, r, palette.whiteWash.withAlpha (0.08f), 4.0f);

    if (state.isActive)
        primitives::fillPanel (g, r.withWidth (3.0f), palette.accent, 1.5f);
}

void drawFocusRing (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius)
{
    const auto width = Theme::get().strokeWidthHeavy;
    g.setColour (Theme::palette().textBright);
    g.drawRoundedRectangle (r.reduced (0.5f * width), cornerRadius, width);
}

juce::Colour textColour (const PartState& state)
{
    const auto& palette = Theme::palette();

    if (! state.isEnabled)
        return palette.textMuted;

    return state.isHovered || state.isActive ? palette.textPrimary : palette.textBright;
}

void drawText (juce::Graphics& g, const juce::String& text, juce::Rectangle<int> area, juce::Justification position,
    float narrowest)
{
    g.drawFittedText (text, area, position, 1, narrowest);
}

void drawChevron (juce::Graphics& g, juce::Point<float> centre, float reach, int direction)
{
    juce::Path chevron;
    chevron.startNewSubPath (-0.25f * reach, -0.5f * reach);
    chevron.lineTo (0.25f * reach, 0.0f);
    chevron.lineTo (-0.25f * reach, 0.5f * reach);
    g.strokePath (chevron, juce::PathStrokeType (1.75f, juce::PathStrokeType::mitered, juce::PathStrokeType::rounded),
        juce::AffineTransform::rotation (static_cast<float> (direction) * juce::MathConstants<float>::halfPi)
            .translated (centre));
}

} // namespace quillon::ui_pro::controls::presets
