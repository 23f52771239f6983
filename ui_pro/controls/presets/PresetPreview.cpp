#include "ui_pro/controls/presets/PresetPreview.h"

#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{

PresetPreview::PresetPreview()
{
    setInterceptsMouseClicks (false, false);
    setAccessible (false);
}

void PresetPreview::setPainter (PresetSelector::PreviewPainter newPainter)
{
    painter = std::move (newPainter);
    repaint();
}

void PresetPreview::show (const PresetEntry* entry)
{
    const auto newId = entry != nullptr ? entry->id : PresetLibrary::none;
    const auto newMode = entry != nullptr ? entry->mode : juce::String();

    if (newId == id && newMode == mode)
        return;

    id = newId;
    mode = newMode;
    repaint();
}

void PresetPreview::paint (juce::Graphics& g)
{
    const auto& theme = style::Theme::get();
    const auto area = getLocalBounds();
    presets::drawWell (g, area.toFloat(), theme.presetBrowser.controlRadius);

    if (id < 0)
        return;

    if (painter != nullptr)
    {
        const juce::Graphics::ScopedSaveState saved (g);
        const auto inside = area.reduced (2);
        g.reduceClipRegion (inside);
        painter (g, inside, id);
        return;
    }

    g.setColour (theme.core.textSecondary);
    g.setFont (style::boldFont (theme.presetBrowser.nameText));
    presets::drawText (g, mode, area.reduced (12), juce::Justification::centred);
}

} // namespace quillon::ui_pro::controls
