#include "ui_pro/controls/presets/PresetTable.h"

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/controls/presets/PresetRow.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

using style::Theme;

} // namespace

PresetTable::PresetTable()
{
    setTitle ("Presets");
    setInterceptsMouseClicks (false, false);
}

PresetTable::~PresetTable() = default;

int PresetTable::getRowsPerPage() const
{
    return std::max (getHeight() / Theme::get().presetBrowser.rowHeight, 1);
}

void PresetTable::show (const PresetLibrary& library)
{
    const auto wasEmpty = ids.empty();
    const auto oldFirstRow = firstRow;
    const auto oldCount = ids.size();
    ids = library.getVisibleIds();
    firstRow = presets::firstLineToShow (
        library.visibleIndexOf (library.getSelectedId()), firstRow, getRowsPerPage(), static_cast<int> (ids.size()));

    // One row more than fits whole: the last may be cut.
    const auto shown = std::min (static_cast<int> (ids.size()) - firstRow, getRowsPerPage() + 1);

    while (static_cast<int> (rows.size()) > shown)
        rows.pop_back();

    for (int i = 0; i < shown; ++i)
    {
        const auto index = static_cast<std::size_t> (i);

        if (index == rows.size())
        {
            rows.push_back (std::make_unique<PresetRow>());
            rows.back()->onPick = [this] (int id)
            {
                if (onPick != nullptr)
                    onPick (id);
            };
            addAndMakeVisible (*rows.back());
        }

        if (const auto* entry = library.find (idAt (i)))
            rows[index]->show ({ entry->id, entry->name, entry->category, entry->author, entry->mode,
                library.isInForce (*entry), entry->id == library.getSelectedId(), i == hoveredRow });
    }

    resized();

    if (wasEmpty != ids.empty() || oldFirstRow != firstRow || oldCount != ids.size())
        repaint();

    if (auto* handler = getAccessibilityHandler())
        handler->notifyAccessibilityEvent (juce::AccessibilityEvent::rowSelectionChanged);
}

int PresetTable::idAt (int row) const
{
    const auto index = firstRow + row;
    return row >= 0 && index < static_cast<int> (ids.size()) ? ids[static_cast<std::size_t> (index)]
                                                             : PresetLibrary::none;
}

void PresetTable::setHoveredRow (int row)
{
    hoveredRow = row;

    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        auto content = rows[i]->getContent();
        content.isHovered = static_cast<int> (i) == row;
        rows[i]->show (content);
    }
}

void PresetTable::resized()
{
    const auto height = Theme::get().presetBrowser.rowHeight;

    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i]->setBounds (0, static_cast<int> (i) * height, getWidth(), height);
}

void PresetTable::paint (juce::Graphics& g)
{
    if (! ids.empty())
        return;

    g.setColour (Theme::palette().textSecondary);
    g.setFont (style::regularFont (Theme::get().presetBrowser.bodyText));
    g.drawText ("No presets match", getLocalBounds().withHeight (120), juce::Justification::centred, false);
}

void PresetTable::paintOverChildren (juce::Graphics& g)
{
    const auto page = static_cast<float> (getRowsPerPage());
    const auto count = static_cast<float> (ids.size());

    if (count <= page)
        return;

    // How far the list is scrolled.
    auto track = getLocalBounds().toFloat().removeFromRight (7.0f).reduced (2.0f, 3.0f);
    const auto height = track.getHeight();
    g.setColour (Theme::palette().textMuted);
    g.fillRoundedRectangle (track.withTop (track.getY() + height * static_cast<float> (firstRow) / count)
                                .withHeight (height * page / count),
        1.5f);
}

std::unique_ptr<juce::AccessibilityHandler> PresetTable::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::list);
}

} // namespace quillon::ui_pro::controls
