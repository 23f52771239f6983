#include "ui_pro/controls/buttons/LinkIconButton.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float linkTextSize = 11.0f;
constexpr int linkPadding = 6;
constexpr int linkTextGap = 4;

// Two links of a chain in a box of 18 by 8, which lie apart when they join nothing.
constexpr float iconWidth = 18.0f;
constexpr float iconHeight = 8.0f;

juce::Path chain (bool closed)
{
    // Open, the links are smaller and so far apart that it shows at half size.
    const auto length = closed ? 10.5f : 7.0f;
    const auto height = closed ? iconHeight : 6.0f;
    const auto top = 0.5f * (iconHeight - height);
    juce::Path path;
    path.addRoundedRectangle (0.0f, top, length, height, 0.5f * height);
    path.addRoundedRectangle (iconWidth - length, top, length, height, 0.5f * height);
    return path;
}

} // namespace

LinkIconButton::LinkIconButton (juce::Colour accentColour)
    : FaceButton ("Link", accentColour)
{
    setClickingTogglesState (true);
}

void LinkIconButton::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    paintButtonPlate (g, getLocalBounds().toFloat(), getColour(), look);

    const auto caption = getButtonText();
    const auto font = style::boldFont (linkTextSize);
    const auto area = getLocalBounds().reduced (linkPadding, 0);
    const auto textWidth = caption.isEmpty() ? 0 : juce::GlyphArrangement::getStringWidthInt (font, caption) + 1;
    const auto scale = std::min (1.0f, static_cast<float> (std::max (area.getWidth(), 0)) / iconWidth);
    const auto drawnWidth = juce::roundToInt (iconWidth * scale);
    const auto groupWidth = drawnWidth + (textWidth > 0 ? linkTextGap + textWidth : 0);
    auto group = area.withSizeKeepingCentre (std::min (groupWidth, area.getWidth()), area.getHeight());

    const auto iconArea = group.removeFromLeft (drawnWidth).toFloat();
    const auto onto = juce::AffineTransform::scale (scale).translated (
        iconArea.getX(), iconArea.getCentreY() - 0.5f * iconHeight * scale);
    g.setColour (plateTextColour (getColour(), look));
    g.strokePath (chain (look.on), juce::PathStrokeType (1.6f), onto);

    if (textWidth == 0)
        return;

    group.removeFromLeft (linkTextGap);
    g.setFont (font);
    g.drawFittedText (caption, group, juce::Justification::centredLeft, 1, 0.85f);
}

} // namespace quillon::ui_pro::controls
