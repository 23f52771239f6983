#pragma once

#include "ui_pro/controls/presets/PresetButton.h"
#include "ui_pro/controls/presets/PresetLibrary.h"
#include "ui_pro/primitives/KeyboardLoan.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <functional>
#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

/** The header's control for presets: a button for the initial preset, one step back or forth, and a display of the
    current preset that opens a browser of all presets. It changes no preset itself: it asks through its hooks, and the
    owner reports what is in force. Message thread. */
class PresetSelector final : public primitives::GroupComponent
{
public:
    class BrowserPopup;

    /** What the owner does when asked. An action without a hook does nothing and looks disabled. */
    struct Hooks
    {
        std::function<void()> initialise;
        std::function<void()> previous;
        std::function<void()> next;
        std::function<void()> browserOpened;        // for the owner
        std::function<void()> browserOpenedWatcher; // for anyone else who wants to know, called second
        std::function<void (int presetId)> load;
        std::function<void()> save;
        std::function<void()> saveAs;
        std::function<void()> rename;
        std::function<void()> duplicate;
        std::function<void()> deletePreset;
        std::function<void()> importPresets;
        std::function<void()> exportPresets;
    };

    /** Draws what a preset does into an area of the browser, such as its curve. */
    using PreviewPainter = std::function<void (juce::Graphics&, juce::Rectangle<int> area, int presetId)>;

    /** Where the strip's parts stand, in the selector's coordinates. */
    struct Parts
    {
        juce::Rectangle<int> initialise;
        juce::Rectangle<int> previous;
        juce::Rectangle<int> display;
        juce::Rectangle<int> next;

        static Parts within (juce::Rectangle<int> area);
    };

    PresetSelector();
    ~PresetSelector() override;

    void setHooks (Hooks newHooks);
    void setPreviewPainter (PreviewPainter painter);

    /** The component that the browser is laid over, an ancestor of the selector: the one that everything is scaled
        with. Without one it is the top-level component. */
    void setBrowserParent (juce::Component* newParent);

    /** Replaces the library. */
    void setEntries (std::vector<PresetEntry> entries);

    /** Reports what is in force. */
    void setCurrentPreset (int index, int count, const juce::String& name);

    juce::String getCurrentLabel() const { return library.getCurrentLabel(); }

    const PresetLibrary& getLibrary() const { return library; }

    void setCollection (int collection);
    void setCategoryFilter (const juce::String& category);
    void setAuthorFilter (const juce::String& author);
    void setSearchText (const juce::String& text);
    void setSortDescending (bool shouldDescend);
    void select (int presetId);
    void moveSelection (int rows);

    /** Asks the owner to load an entry of the library and closes the browser; ignored without such an entry. */
    void load (int presetId);

    /** Runs the action that a button of the browser names, such as "LOAD"; ignored for any other text. */
    void runAction (const juce::String& action);
    bool canRunAction (const juce::String& action) const;

    void openBrowser();
    void closeBrowser();

    /** The open browser, or none. */
    BrowserPopup* getBrowser() const { return browser.get(); }

    void resized() override;
    void visibilityChanged() override;
    void enablementChanged() override;

private:
    std::function<void()> hookOf (const juce::String& action) const;
    bool handleDisplayKey (const juce::KeyPress& key);
    void toggleBrowser();
    void refreshBrowser();

    PresetLibrary library;
    Hooks hooks;
    PreviewPainter previewPainter;

    PresetButton initialiseButton { PresetButton::Look::initialise, "Initial preset", "INIT" };
    PresetButton previousButton { PresetButton::Look::previous, "Previous preset" };
    PresetButton display { PresetButton::Look::display, "Preset" };
    PresetButton nextButton { PresetButton::Look::next, "Next preset" };

    juce::Component::SafePointer<juce::Component> browserParent;
    primitives::KeyboardLoan keyboard;
    std::unique_ptr<BrowserPopup> browser;
};

} // namespace quillon::ui_pro::controls
