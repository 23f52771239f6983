#include "ui_pro/controls/presets/PresetTable.h"

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

juce::Font fontOf (std::size_t column)
{
    const auto size = style::Theme::get().presetBrowser.bodyText;
    return column == 0 ? style::boldFont (size) : style::regularFont (size);
}

int widthOf (std::size_t column)
{
    return presets::columns[column].header.getWidth() - 6;
}

} // namespace

PresetTable::PresetTable()
{
    setModel (this);
    setTitle ("Presets");
    setRowHeight (style::Theme::get().presetBrowser.rowHeight);
    setRowSelectedOnMouseDown (true);
    setWantsKeyboardFocus (false);
    setColour (backgroundColourId, juce::Colours::transparentBlack);
    getViewport()->setScrollBarsShown (false, false);
    addMouseListener (this, true);
}

PresetTable::~PresetTable()
{
    setModel (nullptr);
}

int PresetTable::getRowsPerPage() const
{
    return std::max (getHeight() / getRowHeight(), 1);
}

void PresetTable::show (const PresetLibrary& library)
{
    const auto before = std::exchange (rows, {});
    const auto firstBefore = firstRow;

    for (const auto id : library.getVisibleIds())
        if (const auto* entry = library.find (id))
            rows.push_back (
                { id, entry->name, entry->category, entry->author, entry->mode, library.isInForce (*entry) });

    selectedRow = library.visibleIndexOf (library.getSelectedId());
    firstRow = presets::firstLineToShow (selectedRow, firstRow, getRowsPerPage(), getNumRows());

    if (before.size() != rows.size())
    {
        updateContent();
        repaint();
    }

    for (std::size_t i = 0; i < std::min (rows.size(), before.size()); ++i)
        if (! (rows[i] == before[i]))
            repaintRow (static_cast<int> (i));

    selectRow (selectedRow, true);

    if (firstRow != firstBefore || before.size() != rows.size())
    {
        getViewport()->setViewPosition (0, firstRow * getRowHeight());
        repaint();
    }
}

void PresetTable::setHoveredRow (int row)
{
    const auto before = std::exchange (hoveredRow, row);

    if (before == row)
        return;

    repaintRow (before); // none for -1
    repaintRow (row);
}

void PresetTable::mouseMove (const juce::MouseEvent& event)
{
    const auto at = event.getEventRelativeTo (this).getPosition();
    setHoveredRow (getRowContainingPosition (at.x, at.y));
}

void PresetTable::mouseExit (const juce::MouseEvent&)
{
    setHoveredRow (-1);
}

void PresetTable::mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel)
{
    juce::Component::mouseWheelMove (event, wheel); // the browser's: it moves the selection
}

void PresetTable::selectedRowsChanged (int row)
{
    if (row == selectedRow)
        return;

    if (row >= 0)
        juce::NullCheckedInvocation::invoke (onPick, rows[static_cast<std::size_t> (row)].id);
    else
        selectRow (selectedRow, true); // none is let go of but by choosing another
}

void PresetTable::listBoxItemDoubleClicked (int row, const juce::MouseEvent&)
{
    if (row < getNumRows())
        juce::NullCheckedInvocation::invoke (onLoad, rows[static_cast<std::size_t> (row)].id);
}

juce::String PresetTable::getNameForRow (int row)
{
    if (row < 0 || row >= getNumRows())
        return {};

    const auto& shown = rows[static_cast<std::size_t> (row)];
    const auto cells = shown.cells();
    return juce::StringArray (cells.data(), static_cast<int> (cells.size())).joinIntoString (", ") +
        (shown.isInForce ? ", Loaded" : "");
}

juce::String PresetTable::getTooltipForRow (int row)
{
    if (row < 0 || row >= getNumRows())
        return {};

    const auto cells = rows[static_cast<std::size_t> (row)].cells();

    for (std::size_t i = 0; i < cells.size(); ++i)
        if (juce::GlyphArrangement::getStringWidthInt (fontOf (i), cells[i]) > widthOf (i))
            return getNameForRow (row); // something is cut off

    return {};
}

void PresetTable::paintListBoxItem (int row, juce::Graphics& g, int width, int height, bool isSelected)
{
    if (row >= getNumRows())
        return;

    const auto& shown = rows[static_cast<std::size_t> (row)];
    const auto& palette = style::Theme::palette();
    juce::Rectangle<int> area (width, height);

    g.setColour (palette.outline.withMultipliedAlpha (0.6f));
    g.fillRect (area.removeFromBottom (1));
    presets::drawLine (g, area.reduced (1, 0).toFloat(), { true, row == hoveredRow, false, isSelected });

    if (shown.isInForce)
        primitives::drawTick (g, { 36.0f, area.toFloat().getCentreY() });

    const auto cells = shown.cells();

    for (std::size_t i = 0; i < cells.size(); ++i)
    {
        g.setColour (i == 0 || isSelected ? palette.textPrimary : palette.textSecondary);
        g.setFont (fontOf (i));
        presets::drawText (g, cells[i],
            area.withX (presets::columns[i].header.getX() - presets::table.getX()).withWidth (widthOf (i)),
            juce::Justification::centredLeft);
    }
}

void PresetTable::paint (juce::Graphics& g)
{
    if (! rows.empty())
        return;

    g.setColour (style::Theme::palette().textSecondary);
    g.setFont (style::regularFont (style::Theme::get().presetBrowser.bodyText));
    g.drawText ("No presets match", getLocalBounds().withHeight (120), juce::Justification::centred, false);
}

void PresetTable::paintOverChildren (juce::Graphics& g)
{
    const auto page = static_cast<float> (getRowsPerPage());
    const auto count = static_cast<float> (rows.size());

    if (count <= page)
        return;

    // How far the list is scrolled.
    auto track = getLocalBounds().toFloat().removeFromRight (7.0f).reduced (2.0f, 3.0f);
    const auto height = track.getHeight();
    g.setColour (style::Theme::palette().textMuted);
    g.fillRoundedRectangle (track.withTop (track.getY() + height * static_cast<float> (firstRow) / count)
                                .withHeight (height * page / count),
        1.5f);
}

} // namespace quillon::ui_pro::controls
