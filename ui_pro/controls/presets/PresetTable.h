#pragma once

#include "ui_pro/controls/presets/PresetLibrary.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

class PresetRow;

/** The rows of the preset browser's table, drawn and spoken; the browser handles the mouse. It scrolls only as far as
    the selected row needs. */
class PresetTable final : public juce::Component
{
public:
    PresetTable();
    ~PresetTable() override;

    /** Shows what the library lets through; repaints the rows that changed. */
    void show (const PresetLibrary& library);

    /** The preset in a row counted from the table's top, or none. */
    int idAt (int row) const;

    /** Lights a row counted from the top; -1 for none. */
    void setHoveredRow (int row);

    /** How many whole rows fit. */
    int getRowsPerPage() const;

    /** Called when a screen reader picks a preset. */
    std::function<void (int presetId)> onPick;

    void paint (juce::Graphics& g) override;
    void paintOverChildren (juce::Graphics& g) override;
    void resized() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    std::vector<std::unique_ptr<PresetRow>> rows;
    std::vector<int> ids; // of all visible presets
    int firstRow = 0;
    int hoveredRow = -1;
};

} // namespace quillon::ui_pro::controls
