#include "ui_pro/controls/footer/FooterReadout.h"

#include "ui_pro/primitives/TextValueHandler.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float largestFigure = 999.9f;
constexpr float captionSize = 10.0f;
constexpr float valueSize = 14.0f;
constexpr int captionHeight = 14;
constexpr int valueHeight = 20;

} // namespace

float sanitisedFigure (float figure)
{
    return std::isfinite (figure) ? std::clamp (figure, 0.0f, largestFigure) : 0.0f;
}

FooterReadout::FooterReadout (
    const juce::String& captionText, const juce::String& initialText, juce::Rectangle<int> slot)
    : caption (captionText),
      valueText (initialText),
      preferredSize (slot.withZeroOrigin())
{
    setTitle (caption.trimCharactersAtEnd (":"));
    setSize (preferredSize.getWidth(), preferredSize.getHeight());
}

void FooterReadout::showText (const juce::String& text)
{
    if (valueText == text)
        return;

    valueText = text;
    repaint (getValueRow());
}

juce::Rectangle<int> FooterReadout::getCaptionRow() const
{
    const auto area = getTextArea();
    return area.withSizeKeepingCentre (area.getWidth(), captionHeight + valueHeight).withHeight (captionHeight);
}

juce::Rectangle<int> FooterReadout::getValueRow() const
{
    return getCaptionRow().translated (0, captionHeight).withHeight (valueHeight);
}

void FooterReadout::paint (juce::Graphics& g)
{
    const auto& palette = style::Theme::palette();

    if (const auto row = getCaptionRow(); g.clipRegionIntersects (row))
    {
        g.setColour (palette.textSecondary);
        g.setFont (style::boldFont (captionSize));
        g.drawText (caption, row, juce::Justification::centredLeft, false);
    }

    if (const auto row = getValueRow(); g.clipRegionIntersects (row))
    {
        g.setColour (isEnabled() ? palette.textPrimary : palette.textDisabled);
        g.setFont (style::regularFont (valueSize));
        g.drawFittedText (valueText, row, juce::Justification::centredLeft, 1, 0.7f);
    }
}

std::unique_ptr<juce::AccessibilityHandler> FooterReadout::createAccessibilityHandler()
{
    return primitives::makeTextValueHandler (
        *this, juce::AccessibilityRole::staticText, [this] { return getValueText(); });
}

} // namespace quillon::ui_pro::controls
