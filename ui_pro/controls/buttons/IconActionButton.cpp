#include "ui_pro/controls/buttons/IconActionButton.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float actionTextSize = 12.0f;
constexpr int actionPadding = 8;
constexpr int iconSize = 14;
constexpr int iconGap = 6;

} // namespace

IconActionButton::IconActionButton (const juce::String& caption, juce::Path iconPath)
    : IconActionButton (caption, std::move (iconPath), style::Theme::palette().accent)
{
}

IconActionButton::IconActionButton (const juce::String& caption, juce::Path iconPath, juce::Colour accentColour)
    : FaceButton (caption, accentColour),
      icon (std::move (iconPath))
{
    setButtonText (caption);
}

void IconActionButton::setIcon (const juce::Path& newIcon)
{
    if (icon == newIcon)
        return;

    icon = newIcon;
    repaint();
}

void IconActionButton::setPrimary (bool shouldBePrimary)
{
    if (primary == shouldBePrimary)
        return;

    primary = shouldBePrimary;
    repaint();
}

void IconActionButton::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    auto plate = look;
    plate.on = look.on || primary;
    paintButtonPlate (g, getLocalBounds().toFloat(), getColour(), plate);

    const auto caption = getButtonText();
    const auto font = style::boldFont (actionTextSize);
    const auto area = getLocalBounds().reduced (actionPadding, 0);
    const auto textWidth = caption.isEmpty() ? 0 : juce::GlyphArrangement::getStringWidthInt (font, caption) + 1;
    const auto iconWidth = icon.isEmpty() ? 0 : std::min (iconSize, std::min (getWidth(), getHeight()));
    const auto between = textWidth > 0 && iconWidth > 0 ? iconGap : 0;
    auto group = area.withSizeKeepingCentre (
        std::min (iconWidth + between + textWidth, std::max (area.getWidth(), iconWidth)), area.getHeight());

    g.setColour (plateTextColour (getColour(), plate));

    if (iconWidth > 0)
    {
        const auto box = group.removeFromLeft (iconWidth).withSizeKeepingCentre (iconWidth, iconWidth).toFloat();
        g.fillPath (icon, icon.getTransformToScaleToFit (box, true));
    }

    if (textWidth > 0)
    {
        group.removeFromLeft (between);
        g.setFont (font);
        g.drawFittedText (caption, group, juce::Justification::centred, 1, 0.8f);
    }
}

} // namespace quillon::ui_pro::controls
