#include "ui_pro/controls/presets/PresetSelector.h"

#include "ui_pro/controls/presets/PresetBrowserPopup.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int initialiseWidth = 56;
constexpr int gapAfterInitialise = 8;
constexpr int stepWidth = 34;

/** Calls a copy, because what a hook does may replace the hooks or delete their owner. */
template <typename Hook, typename... Arguments>
void call (const Hook& hook, Arguments... arguments)
{
    if (const auto copy = hook; copy != nullptr)
        copy (arguments...);
}

} // namespace

PresetSelector::Parts PresetSelector::Parts::within (juce::Rectangle<int> area)
{
    Parts parts;
    parts.initialise = area.removeFromLeft (initialiseWidth);
    area.removeFromLeft (gapAfterInitialise);
    parts.previous = area.removeFromLeft (stepWidth);
    parts.next = area.removeFromRight (stepWidth);
    parts.display = area;
    return parts;
}

PresetSelector::PresetSelector()
{
    setTitle ("Presets");
    setInterceptsMouseClicks (false, true);

    initialiseButton.onClick = [this] { call (hooks.initialise); };
    previousButton.onClick = [this] { call (hooks.previous); };
    nextButton.onClick = [this] { call (hooks.next); };
    display.onClick = [this] { toggleBrowser(); };
    display.onKey = [this] (const juce::KeyPress& key) { return handleDisplayKey (key); };
    display.valueText = [this] { return display.getButtonText(); };
    display.setButtonText (library.getCurrentLabel());

    for (auto* part : { &initialiseButton, &previousButton, &display, &nextButton })
        addAndMakeVisible (part);

    setHooks ({});
}

PresetSelector::~PresetSelector()
{
    closeBrowser();
}

void PresetSelector::setHooks (Hooks newHooks)
{
    hooks = std::move (newHooks);
    initialiseButton.setEnabled (hooks.initialise != nullptr);
    previousButton.setEnabled (hooks.previous != nullptr);
    nextButton.setEnabled (hooks.next != nullptr);
    refreshBrowser();
}

void PresetSelector::setPreviewPainter (PreviewPainter painter)
{
    previewPainter = std::move (painter);

    if (browser != nullptr)
        browser->setPreviewPainter (previewPainter);
}

void PresetSelector::setBrowserParent (juce::Component* newParent)
{
    browserParent = newParent;
}

void PresetSelector::setEntries (std::vector<PresetEntry> entries)
{
    if (library.setEntries (std::move (entries)))
        refreshBrowser();
}

void PresetSelector::setCurrentPreset (int index, int count, const juce::String& name)
{
    if (! library.setCurrent (index, count, name))
        return;

    const auto label = library.getCurrentLabel();

    if (label != display.getButtonText())
    {
        display.setButtonText (label);
        display.setTooltip (label); // for a name that does not fit

        if (auto* handler = display.getAccessibilityHandler())
            handler->notifyAccessibilityEvent (juce::AccessibilityEvent::valueChanged);
    }

    refreshBrowser();
}

void PresetSelector::setCollection (int collection)
{
    if (library.setCollection (collection))
        refreshBrowser();
}

void PresetSelector::setCategoryFilter (const juce::String& category)
{
    if (library.setCategoryFilter (category))
        refreshBrowser();
}

void PresetSelector::setAuthorFilter (const juce::String& author)
{
    if (library.setAuthorFilter (author))
        refreshBrowser();
}

void PresetSelector::setSearchText (const juce::String& text)
{
    if (library.setSearchText (text))
        refreshBrowser();
}

void PresetSelector::setSortDescending (bool shouldDescend)
{
    if (library.setSortDescending (shouldDescend))
        refreshBrowser();
}

void PresetSelector::select (int presetId)
{
    if (library.select (presetId))
        refreshBrowser();
}

void PresetSelector::moveSelection (int rows)
{
    if (library.moveSelection (rows))
        refreshBrowser();
}

void PresetSelector::load (int presetId)
{
    if (library.find (presetId) == nullptr)
        return;

    const SafePointer<PresetSelector> self (this);
    call (hooks.load, presetId);

    if (self != nullptr)
        closeBrowser();
}

std::function<void()> PresetSelector::hookOf (const juce::String& action) const
{
    const std::pair<const char*, const std::function<void()>&> actions[] = { { "SAVE", hooks.save },
        { "SAVE AS", hooks.saveAs }, { "RENAME", hooks.rename }, { "DUPLICATE", hooks.duplicate },
        { "DELETE", hooks.deletePreset }, { "IMPORT", hooks.importPresets }, { "EXPORT", hooks.exportPresets } };
    const auto* const found = std::find_if (std::begin (actions), std::end (actions),
        [&action] (const auto& candidate) { return action == candidate.first; });
    return found != std::end (actions) ? found->second : nullptr;
}

void PresetSelector::runAction (const juce::String& action)
{
    if (action == "LOAD")
        load (library.getSelectedId());
    else
        call (hookOf (action));
}

bool PresetSelector::canRunAction (const juce::String& action) const
{
    return action == "LOAD" ? hooks.load != nullptr && library.getSelected() != nullptr : hookOf (action) != nullptr;
}

void PresetSelector::openBrowser()
{
    auto* const parent = browserParent != nullptr ? browserParent.getComponent() : getTopLevelComponent();

    if (browser != nullptr || parent == this || ! isEnabled())
        return;

    library.setSearchText ({});
    library.selectInForce();
    browser = std::make_unique<BrowserPopup> (*this);
    browser->setPreviewPainter (previewPainter);
    browser->showOver (*parent);
    keyboard.take (*browser, browser->getSearchField());
    display.setOpen (true);

    const SafePointer<PresetSelector> self (this);
    call (hooks.browserOpened);

    if (self != nullptr)
        call (hooks.browserOpenedWatcher);
}

void PresetSelector::closeBrowser()
{
    if (browser == nullptr)
        return;

    browser->closeLists(); // each gives the keyboard back to the browser
    const auto closing = std::move (browser);
    display.setOpen (false);
    keyboard.giveBack (*closing);
}

void PresetSelector::toggleBrowser()
{
    if (browser != nullptr)
        closeBrowser();
    else
        openBrowser();
}

void PresetSelector::refreshBrowser()
{
    if (browser != nullptr)
        browser->refresh();
}

bool PresetSelector::handleDisplayKey (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::returnKey || key == juce::KeyPress::downKey)
        toggleBrowser();
    else if (key == juce::KeyPress::leftKey)
        call (hooks.previous);
    else if (key == juce::KeyPress::rightKey)
        call (hooks.next);
    else if (key == juce::KeyPress::escapeKey && browser != nullptr)
        closeBrowser();
    else
        return false;

    return true;
}

void PresetSelector::resized()
{
    const auto parts = Parts::within (getLocalBounds());
    initialiseButton.setBounds (parts.initialise);
    previousButton.setBounds (parts.previous);
    display.setBounds (parts.display);
    nextButton.setBounds (parts.next);
}

void PresetSelector::visibilityChanged()
{
    if (! isVisible())
        closeBrowser();
}

void PresetSelector::enablementChanged()
{
    if (! isEnabled())
        closeBrowser();
}

} // namespace quillon::ui_pro::controls
