#include "ui_pro/controls/presets/PresetBrowserPopup.h"

#include "ui_pro/controls/presets/PresetBrowserBackground.h"
#include "ui_pro/controls/presets/PresetFilterChoices.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

using Look = PresetButton::Look;

constexpr float wheelTravelPerRow = 0.12f; // of a wheel without notches

} // namespace

PresetSelector::BrowserPopup::BrowserPopup (PresetSelector& owner)
    : juce::ComponentMovementWatcher (&owner),
      selector (owner)
{
    setTitle ("Preset browser");
    setSize (presets::browserWidth, presets::browserHeight);
    setFocusContainerType (FocusContainerType::keyboardFocusContainer);

    search.setBounds (presets::searchField);
    search.onKey = [this] (const juce::KeyPress& key) { return keyPressed (key); };
    search.onEdit = [this] (const juce::String& text)
    {
        if (text == selector.getLibrary().getSearchText())
            return;

        selector.setSearchText (text);
        announce (status.getCountText());
    };
    addAndMakeVisible (search);
    addButtons();

    table.setBounds (presets::table);
    table.onPick = [this] (int id) { selector.select (id); };
    table.onLoad = [this] (int id) { selector.load (id); }; // deletes this
    addAndMakeVisible (table);

    status.setBounds (presets::statusLine);
    details.setBounds (presets::details);
    preview.setBounds (presets::preview);
    addAndMakeVisible (status);
    addAndMakeVisible (details);
    addAndMakeVisible (preview);

    refresh();
}

PresetSelector::BrowserPopup::~BrowserPopup() = default;

PresetSelector::BrowserPopup::Button PresetSelector::BrowserPopup::makeButton (Look look, const juce::String& title,
    const juce::String& text, juce::Rectangle<int> area, std::function<void()> action)
{
    auto button = std::make_unique<PresetButton> (look, title, text);
    button->setBounds (area);
    button->onClick = [action = std::move (action)]
    {
        const auto copy = action; // since it may delete the browser
        copy();
    };
    addAndMakeVisible (*button);
    return button;
}

void PresetSelector::BrowserPopup::addButtons()
{
    addFilter (both, Look::button, "Filter", presets::filterButton);
    addFilter (category, Look::chooser, "Category", presets::categoryFilter);
    addFilter (author, Look::chooser, "Author", presets::authorFilter);
    filters[both]->setButtonText ("FILTER");
    filters[both]->setTooltip ("Choose a category and an author.");
    filters[category]->valueText = [this] { return selector.getLibrary().getCategoryFilter(); };
    filters[author]->valueText = [this] { return selector.getLibrary().getAuthorFilter(); };

    sort = makeButton (Look::button, {}, {}, presets::sortToggle,
        [this] { selector.setSortDescending (! selector.getLibrary().isSortDescending()); });
    sort->setTooltip ("Turn the order round.");
    closer = makeButton (Look::button, "Close", "X", presets::closeButton, [this] { selector.closeBrowser(); });
    closer->setTooltip ("Close the browser; so does Escape.");

    for (int i = 0; i < PresetLibrary::numCollections; ++i)
    {
        const auto name = PresetLibrary::collectionName (i);
        collections.push_back (makeButton (Look::tab, name, name, presets::collectionRows[static_cast<std::size_t> (i)],
            [this, i] { selector.setCollection (i); }));
    }

    for (const auto& action : presets::actions())
    {
        actions.push_back (makeButton (actions.empty() ? Look::primary : Look::button, action.text, action.label,
            action.area, [this, &action] { selector.runAction (action.text); }));
        actions.back()->setTooltip (action.help);
    }
}

void PresetSelector::BrowserPopup::addFilter (Filter filter, Look look, const char* title, juce::Rectangle<int> area)
{
    auto& list = filterLists[filter];
    auto& button = filters[filter];
    const auto open = [this, filter]
    { filterLists[filter]->open (presets::filterChoices (selector, filter != author, filter != category)); };
    button = makeButton (look, title, {}, area, open);
    list = std::make_unique<primitives::DropDownList> (*button, style::Theme::get().choices);
    list->onOpenChanged = [this, filter] { filters[filter]->setOpen (filterLists[filter]->isOpen()); };
    button->setOpen (false);
}

void PresetSelector::BrowserPopup::closeLists()
{
    for (auto& list : filterLists)
        list->close();
}

void PresetSelector::BrowserPopup::refresh()
{
    const auto& shown = selector.getLibrary();

    if (search.getText() != shown.getSearchText())
        search.setText (shown.getSearchText(), false);

    const auto showFilter = [this] (Filter filter, const juce::String& caption, const juce::String& value)
    {
        filters[filter]->setButtonText (caption + value);
        filters[filter]->setTooltip (caption + value); // for what does not fit
        filters[filter]->setToggleState (value != "All", juce::dontSendNotification);
    };
    showFilter (category, "Category: ", shown.getCategoryFilter());
    showFilter (author, "Author: ", shown.getAuthorFilter());
    filters[both]->setToggleState (shown.isFiltered(), juce::dontSendNotification);
    sort->setButtonText (shown.isSortDescending() ? "Sort: Z -> A" : "Sort: A -> Z");

    for (std::size_t i = 0; i < collections.size(); ++i)
        collections[i]->setToggleState (static_cast<int> (i) == shown.getCollection(), juce::dontSendNotification);

    for (std::size_t i = 0; i < actions.size(); ++i)
        actions[i]->setEnabled (selector.canRunAction (presets::actions()[i].text));

    table.show (shown);
    status.show (shown);
    details.show (shown.getSelected());
    preview.show (shown.getSelected());
}

void PresetSelector::BrowserPopup::showOver (juce::Component& parent)
{
    parent.addAndMakeVisible (*this);
    place();
}

void PresetSelector::BrowserPopup::place()
{
    const auto* const parent = getParentComponent();

    if (parent == nullptr || selector.getWidth() < 1)
        return;

    const auto anchor = parent->getLocalArea (&selector, selector.getLocalBounds().toFloat());
    const auto room = parent->getLocalBounds().toFloat();
    const auto scale = std::min ({ anchor.getWidth() / static_cast<float> (selector.getWidth()),
        room.getWidth() / static_cast<float> (getWidth()), room.getHeight() / static_cast<float> (getHeight()) });

    if (scale <= 0.0f)
        return;

    const auto below = static_cast<float> (style::Theme::get().presetBrowser.gapBelowSelector) * scale;
    const auto width = static_cast<float> (getWidth()) * scale;
    const auto height = static_cast<float> (getHeight()) * scale;
    const auto x = std::floor (std::clamp (anchor.getRight() - width, 0.0f, room.getWidth() - width));
    const auto y = std::floor (std::clamp (anchor.getBottom() + below, 0.0f, room.getHeight() - height));
    setTransform (juce::AffineTransform::scale (scale).translated (x, y));
}

void PresetSelector::BrowserPopup::componentMovedOrResized (juce::Component& moved, bool wasMoved, bool wasResized)
{
    juce::ComponentMovementWatcher::componentMovedOrResized (moved, wasMoved, wasResized);
    place(); // also for a new transform, which the watcher takes for no change
}

void PresetSelector::BrowserPopup::parentSizeChanged()
{
    place();
}

void PresetSelector::BrowserPopup::paint (juce::Graphics& g)
{
    background.draw (g, *this, presets::drawBrowserBackground);
}

void PresetSelector::BrowserPopup::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails& wheel)
{
    if (! wheel.isSmooth)
    {
        if (wheel.deltaY != 0.0f)
            selector.moveSelection (wheel.deltaY > 0.0f ? -1 : 1);

        return;
    }

    wheelTravel += wheel.deltaY;
    const auto rows = std::trunc (wheelTravel / wheelTravelPerRow);
    wheelTravel -= rows * wheelTravelPerRow;
    selector.moveSelection (static_cast<int> (-rows));
}

void PresetSelector::BrowserPopup::moveSelection (int rows)
{
    selector.moveSelection (rows);
    announce (table.getSelectedName());
}

void PresetSelector::BrowserPopup::loadSelected()
{
    // What is in force already is not loaded anew by a bare key: that would undo every edit since. LOAD does it.
    if (const auto* selected = selector.getLibrary().getSelected())
    {
        if (selector.getLibrary().isInForce (*selected))
            selector.closeBrowser();
        else
            selector.load (selected->id);
    }
}

bool PresetSelector::BrowserPopup::keyPressed (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::upKey)
        moveSelection (-1);
    else if (key == juce::KeyPress::downKey)
        moveSelection (1);
    else if (key == juce::KeyPress::pageUpKey)
        moveSelection (-table.getRowsPerPage());
    else if (key == juce::KeyPress::pageDownKey)
        moveSelection (table.getRowsPerPage());
    else if (key == juce::KeyPress::returnKey)
        loadSelected(); // may delete this
    else if (key == juce::KeyPress::escapeKey)
        selector.closeBrowser(); // deletes this
    else
        return false;

    return true;
}

} // namespace quillon::ui_pro::controls
