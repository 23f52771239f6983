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

using Look = PresetBrowserTarget::Look;
using presets::Hit;

constexpr int firstCollection = 5; // in the list of targets
constexpr int firstAction = firstCollection + PresetLibrary::numCollections;

constexpr float wheelTravelPerRow = 0.12f; // of a wheel without notches

/** Where a hit's button stands in the list of targets; -1 when it is no button. */
int placeOf (Hit hit)
{
    switch (hit.target)
    {
        case presets::Target::filters:
            return 0;
        case presets::Target::category:
            return 1;
        case presets::Target::author:
            return 2;
        case presets::Target::sort:
            return 3;
        case presets::Target::close:
            return 4;
        case presets::Target::collection:
            return firstCollection + hit.index;
        case presets::Target::action:
            return firstAction + hit.index;
        case presets::Target::row:
        case presets::Target::none:
            break;
    }
    return -1;
}

/** Edges count exactly, whatever the scale: a point is in the design pixel that it lies in. */
juce::Point<int> pixelOf (const juce::MouseEvent& event)
{
    return { static_cast<int> (std::floor (event.position.x)), static_cast<int> (std::floor (event.position.y)) };
}

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
    search.onEdit = [this] (const juce::String& text) { selector.setSearchText (text); };
    addAndMakeVisible (search);
    addTargets();

    table.setBounds (presets::table);
    table.onPick = [this] (int id) { selector.select (id); };
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

void PresetSelector::BrowserPopup::addTargets()
{
    const auto add =
        [this] (Look look, Hit hit, const juce::String& text, const juce::String& title, juce::Rectangle<int> area)
    {
        auto& target = *targets.emplace_back (std::make_unique<PresetBrowserTarget> (look, text, title));
        target.setBounds (area);
        target.onPress = [this, hit] { run (hit); };
        addAndMakeVisible (target);
    };

    add (Look::button, { Target::filters }, "FILTER", "Filter", presets::filterButton);
    add (Look::chooser, { Target::category }, {}, {}, presets::categoryFilter);
    add (Look::chooser, { Target::author }, {}, {}, presets::authorFilter);
    add (Look::button, { Target::sort }, {}, {}, presets::sortToggle);
    add (Look::button, { Target::close }, "X", "Close", presets::closeButton);

    for (int i = 0; i < PresetLibrary::numCollections; ++i)
    {
        const auto name = PresetLibrary::collectionName (i);
        add (Look::tab, { Target::collection, i }, name, name, presets::collectionRows[static_cast<std::size_t> (i)]);
    }

    for (int i = 0; i < static_cast<int> (presets::actions().size()); ++i)
    {
        const auto& action = presets::actions()[static_cast<std::size_t> (i)];
        add (i == 0 ? Look::primary : Look::button, { Target::action, i }, action.label, action.text, action.area);
    }
}

PresetBrowserTarget& PresetSelector::BrowserPopup::button (Target target, int index)
{
    return *targets[static_cast<std::size_t> (placeOf ({ target, index }))];
}

void PresetSelector::BrowserPopup::refresh()
{
    const auto& shown = selector.getLibrary();

    if (search.getText() != shown.getSearchText())
        search.setText (shown.getSearchText(), false);

    button (Target::filters).setActive (shown.isFiltered());
    auto& category = button (Target::category);
    category.setText ("Category: " + shown.getCategoryFilter());
    category.setActive (shown.getCategoryFilter() != "All");
    auto& author = button (Target::author);
    author.setText ("Author: " + shown.getAuthorFilter());
    author.setActive (shown.getAuthorFilter() != "All");
    button (Target::sort).setText (shown.isSortDescending() ? "Sort: Z -> A" : "Sort: A -> Z");

    for (int i = 0; i < PresetLibrary::numCollections; ++i)
        button (Target::collection, i).setActive (i == shown.getCollection());

    for (int i = 0; i < static_cast<int> (presets::actions().size()); ++i)
        button (Target::action, i)
            .setEnabled (selector.canRunAction (presets::actions()[static_cast<std::size_t> (i)].text));

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

void PresetSelector::BrowserPopup::setHovered (Hit hit)
{
    if (hit == hovered)
        return;

    for (const auto& [place, isOver] : { std::pair { placeOf (hovered), false }, { placeOf (hit), true } })
        if (place >= 0)
            targets[static_cast<std::size_t> (place)]->setHovered (isOver);

    hovered = hit;

    table.setHoveredRow (hit.target == Target::row ? hit.index : -1);
}

void PresetSelector::BrowserPopup::mouseMove (const juce::MouseEvent& event)
{
    setHovered (presets::hitAt (pixelOf (event)));
}

void PresetSelector::BrowserPopup::mouseExit (const juce::MouseEvent&)
{
    setHovered ({});
}

void PresetSelector::BrowserPopup::mouseDown (const juce::MouseEvent& event)
{
    const auto hit = presets::hitAt (pixelOf (event));

    if (menu != nullptr && hit.target != menuOpener)
        closeMenu();

    if (hit.target == Target::action || hit.target == Target::sort || hit.target == Target::close)
    {
        pressed = &button (hit.target, hit.index);
        pressed->setPressed (true);
    }

    run (hit); // may delete this
}

void PresetSelector::BrowserPopup::mouseUp (const juce::MouseEvent&)
{
    if (auto* released = std::exchange (pressed, nullptr))
        released->setPressed (false);
}

void PresetSelector::BrowserPopup::mouseDoubleClick (const juce::MouseEvent& event)
{
    const auto hit = presets::hitAt (pixelOf (event));

    if (hit.target == Target::row)
        if (const auto id = table.idAt (hit.index); id >= 0)
            selector.load (id); // deletes this
}

void PresetSelector::BrowserPopup::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails& wheel)
{
    closeMenu();

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

bool PresetSelector::BrowserPopup::keyPressed (const juce::KeyPress& key)
{
    if (menu != nullptr)
        return menu->keyPressed (key);

    if (key == juce::KeyPress::upKey)
        selector.moveSelection (-1);
    else if (key == juce::KeyPress::downKey)
        selector.moveSelection (1);
    else if (key == juce::KeyPress::pageUpKey)
        selector.moveSelection (-table.getRowsPerPage());
    else if (key == juce::KeyPress::pageDownKey)
        selector.moveSelection (table.getRowsPerPage());
    else if (key == juce::KeyPress::returnKey)
        selector.load (selector.getLibrary().getSelectedId()); // deletes this
    else if (key == juce::KeyPress::escapeKey)
        selector.closeBrowser(); // deletes this
    else
        return false;

    return true;
}

void PresetSelector::BrowserPopup::run (Hit hit)
{
    switch (hit.target)
    {
        case Target::close:
            selector.closeBrowser(); // deletes this
            return;
        case Target::collection:
            selector.setCollection (hit.index);
            return;
        case Target::row:
            selector.select (table.idAt (hit.index));
            return;
        case Target::action:
            selector.runAction (presets::actions()[static_cast<std::size_t> (hit.index)].text); // may delete this
            return;
        case Target::filters:
        case Target::category:
        case Target::author:
            toggleMenu (hit.target);
            return;
        case Target::sort:
            selector.setSortDescending (! selector.getLibrary().isSortDescending());
            return;
        case Target::none:
            return;
    }
}

void PresetSelector::BrowserPopup::toggleMenu (Target opener)
{
    if (menuOpener == opener)
        closeMenu();
    else
        openMenu (opener);
}

void PresetSelector::BrowserPopup::openMenu (Target opener)
{
    constexpr int gap = 4;
    constexpr int narrowest = 180;

    closeMenu();
    menu = std::make_unique<PresetFilterMenu> (
        presets::filterChoices (selector, opener != Target::author, opener != Target::category));
    menuOpener = opener;
    menu->onClose = [this] { closeMenu(); };

    const auto anchor = button (opener).getBounds();
    const auto top = anchor.getBottom() + gap;
    menu->setBounds (anchor.getX(), top, std::max (anchor.getWidth(), narrowest),
        std::min (menu->getIdealHeight(), getHeight() - top - gap));
    addAndMakeVisible (*menu);
    button (opener).setPressed (true);

    if (menu->isShowing())
        menu->grabKeyboardFocus();
}

void PresetSelector::BrowserPopup::closeMenu()
{
    if (menu == nullptr)
        return;

    button (std::exchange (menuOpener, Target::none)).setPressed (false);
    const auto closing = std::move (menu);

    if (closing->hasKeyboardFocus (true))
        search.grabKeyboardFocus();
}

std::unique_ptr<juce::AccessibilityHandler> PresetSelector::BrowserPopup::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::group);
}

} // namespace quillon::ui_pro::controls
