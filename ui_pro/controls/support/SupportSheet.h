#pragma once

#include "ui_pro/controls/buttons/TabRow.h"
#include "ui_pro/controls/support/SupportDiagnosticsPanel.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <vector>

namespace quillon::ui_pro::controls
{

/** The visible part of the support panel: heading, tabs with their rows, and the grid of buttons, which the panel owns.
 */
class SupportDiagnosticsPanel::Sheet final : public primitives::SilentComponent
{
public:
    static constexpr int width = 600;
    static constexpr int minimumHeight = 400;

    explicit Sheet (SupportDiagnosticsPanel& panel);
    ~Sheet() override;

    void setTab (Tab tab);

    Tab getTab() const { return static_cast<Tab> (tabs.getCurrent()); }

    /** Fills the rows of the current tab from the panel's record. */
    void refreshRows();

    /** Shows what an action has come to in place of the sub-title; empty for the sub-title. */
    void showMessage (const juce::String& text, bool isGood);

    void paint (juce::Graphics& g) override;
    void resized() override;

private:
    class Row;

    void paintSurface (juce::Graphics& g) const;
    void layOutRows();
    void addRow (const juce::String& label, const juce::String& value);

    SupportDiagnosticsPanel& owner;
    TabRow tabs;
    std::vector<std::unique_ptr<Row>> rows;
    juce::Rectangle<int> card; // behind the rows
    primitives::CachedLayer surface;
    juce::String message;
    bool isGoodMessage = true;
};

} // namespace quillon::ui_pro::controls
