#pragma once

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/controls/presets/PresetBrowserTarget.h"
#include "ui_pro/controls/presets/PresetDetails.h"
#include "ui_pro/controls/presets/PresetFilterMenu.h"
#include "ui_pro/controls/presets/PresetPreview.h"
#include "ui_pro/controls/presets/PresetSearchField.h"
#include "ui_pro/controls/presets/PresetSelector.h"
#include "ui_pro/controls/presets/PresetStatusLine.h"
#include "ui_pro/controls/presets/PresetTable.h"
#include "ui_pro/primitives/CachedLayer.h"

#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

/** The panel in which presets are searched, filtered and loaded. It shows the selector's library and passes everything
    that the user does to the selector; it lives from `openBrowser` to `closeBrowser`. Its buttons and rows draw
    themselves, but the popup alone takes the mouse (the search field and an open filter menu excepted). */
class PresetSelector::BrowserPopup final : public juce::Component, private juce::ComponentMovementWatcher
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

    /** The open filter menu, or none. */
    PresetFilterMenu* getFilterMenu() const { return menu.get(); }

    void paint (juce::Graphics& g) override;
    void parentSizeChanged() override;
    void mouseMove (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void mouseDoubleClick (const juce::MouseEvent& event) override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;
    bool keyPressed (const juce::KeyPress& key) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    using Target = presets::Target;

    void componentMovedOrResized (juce::Component& moved, bool wasMoved, bool wasResized) override;

    void componentMovedOrResized (bool, bool) override {}

    void componentPeerChanged() override {}

    void componentVisibilityChanged() override {}

    using juce::ComponentMovementWatcher::componentVisibilityChanged;

    void addTargets();
    void place();
    void run (presets::Hit hit);
    void toggleMenu (Target opener);
    void openMenu (Target opener);
    void closeMenu();
    void setHovered (presets::Hit hit);
    PresetBrowserTarget& button (Target target, int index = 0);

    PresetSelector& selector;
    primitives::CachedLayer background;

    PresetSearchField search;
    std::vector<std::unique_ptr<PresetBrowserTarget>> targets; // in the order of addTargets
    PresetTable table;
    PresetStatusLine status;
    PresetDetails details;
    PresetPreview preview;

    std::unique_ptr<PresetFilterMenu> menu;
    Target menuOpener = Target::none;
    presets::Hit hovered;
    PresetBrowserTarget* pressed = nullptr;
    float wheelTravel = 0.0f;
};

} // namespace quillon::ui_pro::controls
