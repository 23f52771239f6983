#include "ui_pro/controls/presets/PresetStatusLine.h"

#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{

using style::Theme;

PresetStatusLine::PresetStatusLine()
{
    setInterceptsMouseClicks (false, false);
}

void PresetStatusLine::show (const PresetLibrary& library)
{
    const auto* const selected = library.getSelected();
    const auto count = juce::String (library.getVisibleIds().size()) + " presets";
    const auto name = selected != nullptr ? selected->name : juce::String();
    const juce::String mark = selected != nullptr && library.isInForce (*selected) ? "Loaded" : "";

    if (count == countText && name == nameText && mark == markText)
        return;

    countText = count;
    nameText = name;
    markText = mark;
    setTitle (countText);
    setDescription (markText.isNotEmpty() ? nameText + ", " + markText : nameText);
    repaint();
}

void PresetStatusLine::paint (juce::Graphics& g)
{
    const auto& palette = Theme::palette();
    const auto& tokens = Theme::get().presetBrowser;
    auto area = getLocalBounds().withTrimmedLeft (4).withTrimmedRight (4);

    g.setFont (style::regularFont (tokens.labelText));
    g.setColour (palette.textSecondary);
    presets::drawText (g, countText, area.removeFromLeft (160), juce::Justification::centredLeft);

    if (markText.isNotEmpty())
    {
        const auto font = style::boldFont (tokens.labelText);
        g.setFont (font);
        g.setColour (palette.accent);
        g.drawText (markText, area.removeFromRight (juce::GlyphArrangement::getStringWidthInt (font, markText) + 2),
            juce::Justification::centredRight, false);
        primitives::drawTick (g, area.removeFromRight (20).toFloat().getCentre());
        area.removeFromRight (6);
    }

    g.setFont (style::regularFont (tokens.labelText));
    g.setColour (palette.textBright);
    presets::drawText (g, nameText, area, juce::Justification::centredRight);
}

} // namespace quillon::ui_pro::controls
