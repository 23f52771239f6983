#include "ui_pro/primitives/SectionTitle.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::primitives
{

SectionTitle::SectionTitle (juce::String initialText)
    : text (std::move (initialText))
{
    setInterceptsMouseClicks (false, false);
    setTitle (text);
}

void SectionTitle::setText (const juce::String& newText)
{
    if (text == newText)
        return;

    text = newText;
    setTitle (text);
    repaint();
}

void SectionTitle::paint (juce::Graphics& g)
{
    auto area = getLocalBounds();
    const auto rule = area.removeFromBottom (std::min (area.getHeight(), 6));
    const auto& palette = style::Theme::palette();

    if (! area.isEmpty())
    {
        g.setColour (palette.textPrimary);
        g.setFont (style::boldFont (13.0f));
        g.drawText (text, area, juce::Justification::centredLeft);
    }

    g.setColour (palette.outlineStrong);
    g.fillRect (rule.withHeight (1));
    g.setColour (juce::Colours::black);
    g.fillRect (rule.withHeight (1).translated (0, 1));
}

} // namespace quillon::ui_pro::primitives
