#pragma once

#include "ui_pro/controls/presets/PresetLibrary.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>
#include <functional>
#include <vector>

namespace quillon::ui_pro::controls
{

/** The rows of the preset browser's table. It scrolls by whole rows, and only as far as the selected one needs; it
    never takes the keyboard, which the browser has. */
class PresetTable final : public juce::ListBox, private juce::ListBoxModel
{
public:
    PresetTable();
    ~PresetTable() override;

    /** Shows what the library lets through; repaints the rows that changed. */
    void show (const PresetLibrary& library);

    /** What a screen reader hears of the selected row. */
    juce::String getSelectedName() { return getNameForRow (selectedRow); }

    /** How many whole rows fit. */
    int getRowsPerPage() const;

    /** Called when the user or a screen reader picks a preset, and when one is double-clicked. */
    std::function<void (int presetId)> onPick;
    std::function<void (int presetId)> onLoad;

    void paint (juce::Graphics& g) override;
    void paintOverChildren (juce::Graphics& g) override;
    void mouseMove (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;

private:
    struct Row
    {
        int id = PresetLibrary::none;
        juce::String name;
        juce::String category;
        juce::String author;
        juce::String mode;
        bool isInForce = false;

        std::array<juce::String, 4> cells() const { return { name, category, author, mode }; }

        bool operator== (const Row&) const = default;
    };

    int getNumRows() override { return static_cast<int> (rows.size()); }

    void paintListBoxItem (int row, juce::Graphics& g, int width, int height, bool isSelected) override;
    juce::String getNameForRow (int row) override;
    juce::String getTooltipForRow (int row) override;
    void selectedRowsChanged (int row) override;
    void listBoxItemDoubleClicked (int row, const juce::MouseEvent& event) override;

    void setHoveredRow (int row);

    std::vector<Row> rows;
    int selectedRow = -1; // of the library
    int firstRow = 0;
    int hoveredRow = -1;
};

} // namespace quillon::ui_pro::controls
