#include "ui_pro/controls/presets/PresetDetails.h"

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

using style::Theme;

constexpr auto left = juce::Justification::centredLeft;

const juce::String noPreset { "No Preset" };

juce::String secondLineOf (const PresetEntry& entry)
{
    return entry.category + "  -  " + entry.mode;
}

void drawCaption (juce::Graphics& g, const juce::String& text, juce::Rectangle<int> area)
{
    g.setColour (Theme::palette().textSecondary);
    g.setFont (style::regularFont (Theme::get().presetBrowser.labelText));
    presets::drawText (g, text, area, left);
}

void useValueFont (juce::Graphics& g)
{
    g.setColour (Theme::palette().textBright);
    g.setFont (style::regularFont (Theme::get().presetBrowser.bodyText));
}

void drawDate (juce::Graphics& g, const juce::String& caption, const juce::String& date, juce::Rectangle<int> area)
{
    drawCaption (g, caption, area.removeFromLeft (70));
    useValueFont (g);
    presets::drawText (g, date, area, left);
}

} // namespace

PresetDetails::PresetDetails()
{
    setInterceptsMouseClicks (false, false);
    setTitle (noPreset);
}

void PresetDetails::show (const PresetEntry* newEntry)
{
    const auto shown = newEntry != nullptr ? std::optional<PresetEntry> (*newEntry) : std::nullopt;

    if (shown == entry)
        return;

    entry = shown;
    setTitle (entry ? entry->name : noPreset);
    setDescription (entry ? secondLineOf (*entry) + ". " + entry->description : juce::String());
    repaint();
}

void PresetDetails::paint (juce::Graphics& g)
{
    const auto local = [] (juce::Rectangle<int> area) { return area - presets::details.getPosition(); };

    g.setColour (entry ? Theme::palette().textPrimary : Theme::palette().textSecondary);
    g.setFont (style::boldFont (Theme::get().presetBrowser.nameText));
    presets::drawText (g, entry ? entry->name : noPreset, local (presets::detailName), left);

    if (! entry)
        return;

    useValueFont (g);
    g.setColour (Theme::palette().textSecondary);
    presets::drawText (g, secondLineOf (*entry), local (presets::detailSecondLine), left);

    auto author = local (presets::detailAuthor);
    drawCaption (g, "Author", author.removeFromTop (18));
    useValueFont (g);
    presets::drawText (g, entry->author, author, juce::Justification::topLeft);

    auto description = local (presets::detailDescription);
    drawCaption (g, "Description", description.removeFromTop (18));
    useValueFont (g);
    g.drawFittedText (entry->description, description, juce::Justification::topLeft, 4, 0.9f);

    auto dates = local (presets::detailDates);
    drawDate (g, "Created", entry->created, dates.removeFromTop (dates.getHeight() / 2));
    drawDate (g, "Modified", entry->modified, dates);

    paintTags (g, local (presets::detailTags));
}

void PresetDetails::paintTags (juce::Graphics& g, juce::Rectangle<int> area) const
{
    constexpr int height = 20;
    constexpr int gap = 6;
    const auto& palette = Theme::palette();
    const auto font = style::regularFont (Theme::get().presetBrowser.labelText);
    auto corner = area.getPosition();
    g.setFont (font);

    for (const auto& tag : entry->tags)
    {
        const auto width = std::min (juce::GlyphArrangement::getStringWidthInt (font, tag) + 2 * 9, area.getWidth());

        if (corner.x + width > area.getRight())
            corner = { area.getX(), corner.y + height + gap };

        const juce::Rectangle<int> chip { corner.x, corner.y, width, height };

        if (chip.getBottom() > area.getBottom())
            return;

        g.setColour (palette.outlineStrong);
        g.drawRoundedRectangle (chip.toFloat().reduced (0.5f), 0.5f * height, Theme::get().strokeWidth);
        g.setColour (palette.textSecondary);
        presets::drawText (g, tag, chip.reduced (8, 0), juce::Justification::centred);
        corner.x += width + gap;
    }
}

} // namespace quillon::ui_pro::controls
