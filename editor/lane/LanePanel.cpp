#include "editor/lane/LanePanel.h"

#include "ui_pro/primitives/ButtonLook.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr float panelRadius = 8.0f;
constexpr int captionLeft = 32; // in line with the power button

} // namespace

LanePanel::LanePanel()
    : captionColour (style::Theme::accent (3))
{
    setInterceptsMouseClicks (false, false);
}

void LanePanel::setCaption (const juce::String& newCaption, juce::Colour newColour)
{
    if (caption == newCaption && captionColour == newColour)
        return;

    caption = newCaption;
    captionColour = newColour;
    setTitle (caption);
    layer.invalidate();
    repaint();
}

void LanePanel::setActive (bool shouldBeActive)
{
    if (active == shouldBeActive)
        return;

    active = shouldBeActive;
    layer.invalidate();
    repaint();
}

void LanePanel::setTall (bool shouldBeTall)
{
    if (tall == shouldBeTall)
        return;

    tall = shouldBeTall;
    layer.invalidate();
    repaint();
}

void LanePanel::paint (juce::Graphics& g)
{
    layer.draw (g, *this, [this] (juce::Graphics& picture) { paintPanel (picture); });
}

void LanePanel::paintPanel (juce::Graphics& g) const
{
    const auto& palette = style::Theme::palette();
    const auto r = getLocalBounds().toFloat();
    primitives::fillPanel (g, r, style::Theme::get().surface.lanePanel, panelRadius);
    primitives::drawSheen (g, r, panelRadius, 0.03f, 0.01f);
    primitives::drawInnerShadow (g, r, panelRadius, 0.2f);
    g.setColour (palette.outline);
    g.drawRoundedRectangle (r.reduced (0.5f), panelRadius, 1.0f);

    // The lane's colour runs down its left edge.
    const auto colour = active ? captionColour : primitives::disabledAccent (captionColour);
    g.setColour (colour.withAlpha (0.85f));
    g.fillRoundedRectangle (12.0f, 24.0f, 3.0f, r.getHeight() - 48.0f, 1.5f);

    g.setColour (palette.textSecondary);
    g.setFont (style::regularFont (11.0f));
    g.drawText ("CHANNEL", captionLeft, 22, 108, 14, juce::Justification::centredLeft, false);
    g.setColour (colour);
    g.setFont (style::boldFont (19.0f));
    g.drawText (caption, captionLeft, 38, 108, 24, juce::Justification::centredLeft, false);
}

} // namespace kestreleq
