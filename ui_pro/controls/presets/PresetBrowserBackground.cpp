#include "ui_pro/controls/presets/PresetBrowserBackground.h"

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls::presets
{
namespace
{

using style::Theme;

void drawHeading (juce::Graphics& g, const juce::String& text, juce::Rectangle<int> area)
{
    g.setColour (Theme::palette().textSecondary);
    g.setFont (style::boldFont (Theme::get().presetBrowser.labelText));
    drawText (g, text, area, juce::Justification::centredLeft);
}

} // namespace

void drawBrowserBackground (juce::Graphics& g)
{
    const auto& theme = Theme::get();
    const auto& palette = theme.core;
    const auto panel = juce::Rectangle<int> (browserWidth, browserHeight).toFloat();

    g.setGradientFill (
        juce::ColourGradient::vertical (palette.surface2, 0.0f, palette.surface1, 0.5f * panel.getHeight()));
    g.fillRoundedRectangle (panel, theme.panelCornerRadius);
    g.setColour (palette.outlineStrong);
    g.drawRoundedRectangle (panel.reduced (0.75f), theme.panelCornerRadius, theme.strokeWidthHeavy);

    // The table's header and recess are one shape.
    const auto header = table.withTop (columns[0].header.getY()).withBottom (table.getY());
    drawWell (g, table.getUnion (header).toFloat(), theme.presetBrowser.controlRadius);
    {
        const juce::Graphics::ScopedSaveState saved (g);
        g.reduceClipRegion (header);
        primitives::fillPanel (g, header.withHeight (header.getHeight() + 10).toFloat().reduced (1.0f),
            palette.surface2, theme.presetBrowser.controlRadius - 1.0f);
    }
    g.setColour (palette.outlineStrong);
    g.fillRect (header.withTop (header.getBottom() - 1).reduced (1, 0));

    for (const auto& column : columns)
        drawHeading (g, column.title, column.header);

    drawHeading (g, "COLLECTIONS", collectionsHeading);
    drawHeading (g, "PLUGIN PREVIEW", previewHeading);

    g.setColour (palette.outline);
    g.fillRect (821, 70, 1, browserHeight - 70 - 16);
}

} // namespace quillon::ui_pro::controls::presets
