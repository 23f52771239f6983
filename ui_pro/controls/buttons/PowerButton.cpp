#include "ui_pro/controls/buttons/PowerButton.h"

#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{

PowerButton::PowerButton (juce::Colour accentColour)
    : FaceButton ("Power", accentColour)
{
    setClickingTogglesState (true);
}

juce::Path PowerButton::icon()
{
    juce::Path path;
    path.addCentredArc (12.0f, 12.0f, 9.6f, 9.6f, 0.0f, 0.6974336f, 5.5857515f, true);
    path.startNewSubPath (12.0f, 12.0f);
    path.lineTo (12.0f, -1.2f);
    return path;
}

void PowerButton::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    const auto side = static_cast<float> (std::min (getWidth(), getHeight()));
    const auto disc =
        juce::Rectangle<float> (side, side).withCentre (getLocalBounds().toFloat().getCentre()).reduced (0.5f);

    if (disc.getWidth() < 4.0f)
        return;

    const auto& palette = style::Theme::palette();
    const auto lit = look.enabled ? getColour() : primitives::disabledAccent (getColour());
    auto fill = look.on ? palette.surface1.interpolatedWith (lit, 0.24f) : palette.surface2;

    if (look.pressed)
        fill = fill.darker (0.4f);
    else if (look.hovered)
        fill = fill.brighter (0.12f);

    g.setColour (fill);
    g.fillEllipse (disc);

    auto edge = look.on ? lit : (look.enabled ? palette.textMuted : palette.outline);
    g.setColour (look.hovered ? edge.brighter (0.35f) : edge);
    g.drawEllipse (disc, 1.0f);

    if (look.focused)
        primitives::paintFocusRing (g, disc.expanded (0.5f), 0.5f * disc.getWidth());

    // The stem rises above the box that holds the arc, so it is the arc that is centred.
    const auto scale = 0.5f * side / 24.0f;
    const auto onto = juce::AffineTransform::translation (-12.0f, -12.0f)
                          .scaled (scale)
                          .translated (disc.getCentre().translated (0.0f, 0.02f * side));
    auto symbol = icon();
    symbol.applyTransform (onto);

    const auto width = std::max (0.075f * side, 1.0f);
    const auto stroke = [&] (float strokeWidth, juce::Colour colour)
    {
        g.setColour (colour);
        g.strokePath (
            symbol, juce::PathStrokeType (strokeWidth, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
    };

    if (look.on && look.enabled)
        stroke (width + 2.0f, lit.withAlpha (0.25f));

    if (look.on)
        stroke (width, lit.brighter (look.enabled ? 0.25f : 0.0f));
    else
        stroke (
            width, look.enabled ? (look.hovered ? palette.textPrimary : palette.textSecondary) : palette.textDisabled);
}

} // namespace quillon::ui_pro::controls
