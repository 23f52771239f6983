#include "ui_pro/primitives/ButtonLook.h"

#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::primitives
{
juce::Colour disabledAccent (juce::Colour accent)
{
    return accent.withMultipliedSaturation (0.3f).withMultipliedBrightness (0.45f);
}

void paintFocusRing (juce::Graphics& g, juce::Rectangle<float> r, float radius)
{
    g.setColour (style::Theme::palette().textPrimary);
    g.drawRoundedRectangle (r.reduced (1.0f), radius, 2.0f);
}

juce::Colour plateTextColour (juce::Colour accent, const ButtonLook& look)
{
    const auto& palette = style::Theme::palette();

    if (! look.enabled)
        return palette.textDisabled;

    if (look.on)
        return accent.interpolatedWith (palette.textPrimary, 0.6f);

    return look.hovered || look.pressed ? palette.textPrimary : palette.textSecondary;
}

void paintButtonPlate (juce::Graphics& g, juce::Rectangle<float> r, juce::Colour accent, const ButtonLook& look)
{
    const auto& tokens = style::Theme::get().button;
    const auto lit = look.enabled ? accent : disabledAccent (accent);
    const auto plate = r.reduced (0.5f);
    auto top = look.on ? tokens.plateOn.interpolatedWith (lit, 0.34f) : tokens.plateTop;
    auto bottom = look.on ? tokens.plateOn.interpolatedWith (lit, 0.2f) : tokens.plateBottom;

    if (! look.enabled)
    {
        top = top.darker (0.3f);
        bottom = bottom.darker (0.3f);
    }
    else if (look.pressed)
    {
        std::swap (top, bottom);
        top = top.darker (0.25f);
    }
    else if (look.hovered)
    {
        top = top.brighter (0.1f);
        bottom = bottom.brighter (0.1f);
    }

    g.setGradientFill (juce::ColourGradient::vertical (top, plate.getY(), bottom, plate.getBottom()));
    g.fillRoundedRectangle (plate, tokens.cornerRadius);

    if (! look.enabled)
        g.setColour (look.on ? lit : tokens.edgeDisabled);
    else if (look.on)
        g.setColour (look.hovered ? lit.brighter (0.3f) : lit);
    else
        g.setColour (look.hovered ? tokens.edge.brighter (0.4f) : tokens.edge);

    g.drawRoundedRectangle (plate, tokens.cornerRadius, 1.0f);

    if (look.focused)
        paintFocusRing (g, r, tokens.cornerRadius);
}

} // namespace quillon::ui_pro::primitives
