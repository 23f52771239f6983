#pragma once

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/controls/presets/PresetButton.h"
#include "ui_pro/controls/presets/PresetDetails.h"
#include "ui_pro/controls/presets/PresetPreview.h"
#include "ui_pro/controls/presets/PresetSearchField.h"
#include "ui_pro/controls/presets/PresetSelector.h"
#include "ui_pro/controls/presets/PresetStatusLine.h"
#include "ui_pro/controls/presets/PresetTable.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <array>
#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

/** The panel in which presets are searched, filtered and loaded. It shows the selector's library and passes everything
    that the user does to the selector; it lives from `openBrowser` to `closeBrowser`. */
class PresetSelector::BrowserPopup final : public primitives::GroupComponent, private juce::ComponentMovementWatcher
{
public:
    explicit BrowserPopup (PresetSelector& owner);
    ~BrowserPopup() override;

    /** Adds the popup to a component that the selector lies in, below the selector, at its scale and within the
        component's bounds. */
    void showOver (juce::Component& parent);

    /** Shows what has changed in the library. */
    void refresh();

    void setPreviewPainter (PreviewPainter painter) { preview.setPainter (std::move (painter)); }

    PresetSearchField& getSearchField() { return search; }

    PresetTable& getTable() { return table; }

    const PresetStatusLine& getStatusLine() const { return status; }

    /** The filters' buttons and their lists: both filters, the category, the author. */
    enum Filter
    {
        both,
        category,
        author,
        numFilters
    };

    PresetButton& getFilter (Filter filter) { return *filters[filter]; }

    primitives::DropDownList& getFilterList (Filter filter) { return *filterLists[filter]; }

    /** Says something to a screen reader. Replaced in tests. */
    std::function<void (const juce::String&)> announce = [] (const juce::String& text)
    { juce::AccessibilityHandler::postAnnouncement (text, juce::AccessibilityHandler::AnnouncementPriority::medium); };

    /** Closes an open filter list. */
    void closeLists();

    void paint (juce::Graphics& g) override;
    void parentSizeChanged() override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;
    bool keyPressed (const juce::KeyPress& key) override;

private:
    using Button = std::unique_ptr<PresetButton>;

    void componentMovedOrResized (juce::Component& moved, bool wasMoved, bool wasResized) override;

    void componentMovedOrResized (bool, bool) override {}

    void componentPeerChanged() override {}

    void componentVisibilityChanged() override {}

    using juce::ComponentMovementWatcher::componentVisibilityChanged;

    Button makeButton (PresetButton::Look look, const juce::String& title, const juce::String& text,
        juce::Rectangle<int> area, std::function<void()> action);
    void addButtons();
    void addFilter (Filter filter, PresetButton::Look look, const char* title, juce::Rectangle<int> area);
    void place();
    void moveSelection (int rows);
    void loadSelected();

    PresetSelector& selector;
    primitives::CachedLayer background;

    PresetSearchField search;
    std::array<Button, numFilters> filters;
    std::array<std::unique_ptr<primitives::DropDownList>, numFilters> filterLists;
    Button sort;
    Button closer;
    std::vector<Button> collections;
    std::vector<Button> actions; // in the order of presets::actions()
    PresetTable table;
    PresetStatusLine status;
    PresetDetails details;
    PresetPreview preview;
    float wheelTravel = 0.0f;
};

} // namespace quillon::ui_pro::controls
