#include "ui_pro/controls/buttons/OnOffButton.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float onOffTextSize = 12.0f;
constexpr float lampSize = 6.0f;
constexpr int onOffPadding = 8;

/** A ring when off, a glowing disc when on: told apart without their colours. */
void paintLamp (juce::Graphics& g, juce::Point<float> centre, juce::Colour accent, const primitives::ButtonLook& look)
{
    const auto& palette = style::Theme::palette();
    const auto lamp = juce::Rectangle<float> (lampSize, lampSize).withCentre (centre);

    if (! look.on)
    {
        g.setColour (look.enabled ? palette.textMuted.brighter (0.2f) : palette.textDisabled);
        g.drawEllipse (lamp.reduced (0.5f), 1.0f);
        return;
    }

    if (look.enabled)
    {
        g.setColour (accent.withAlpha (0.25f));
        g.fillEllipse (lamp.expanded (2.0f));
    }

    g.setColour (look.enabled ? accent.brighter (0.3f) : primitives::disabledAccent (accent));
    g.fillEllipse (lamp);
}

} // namespace

OnOffButton::OnOffButton (juce::Colour accentColour)
    : FaceButton ("OnOff", accentColour)
{
    setClickingTogglesState (true);
}

void OnOffButton::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    paintButtonPlate (g, getLocalBounds().toFloat(), getColour(), look);

    auto area = getLocalBounds().reduced (onOffPadding, 0);
    const auto lampArea = area.removeFromLeft (static_cast<int> (lampSize));
    area.removeFromLeft (onOffPadding - 2);
    paintLamp (g, lampArea.toFloat().getCentre(), getColour(), look);

    const auto caption = getButtonText().isNotEmpty() ? getButtonText() : juce::String (look.on ? "ON" : "OFF");
    g.setFont (style::boldFont (onOffTextSize));
    g.setColour (plateTextColour (getColour(), look));
    g.drawFittedText (caption, area, juce::Justification::centredLeft, 1, 0.85f);
}

} // namespace quillon::ui_pro::controls
