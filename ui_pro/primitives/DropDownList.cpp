#include "ui_pro/primitives/DropDownList.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/primitives/DropDownRow.h"
#include "ui_pro/primitives/RoleComponent.h"
#include "ui_pro/style/Theme.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::primitives
{
namespace
{

/** The editor that a component is in, so that the editor's tooltips come to lie over the list; without one, the
    outermost component within the window's frame. */
juce::Component& coveredBy (juce::Component& anchor)
{
    if (auto* const editor = anchor.findParentComponentOfClass<juce::AudioProcessorEditor>())
        return *editor;

    auto* top = &anchor;

    while (top->getParentComponent() != nullptr &&
        dynamic_cast<juce::TopLevelWindow*> (top->getParentComponent()) == nullptr)
        top = top->getParentComponent();

    return *top;
}

} // namespace

/** What the rows stand on; shows as many as fit. */
class DropDownList::Surface final : public SilentComponent
{
public:
    explicit Surface (const style::ListTokens& tokensToUse)
        : tokens (tokensToUse)
    {
        setMouseClickGrabsKeyboardFocus (false);
        content.setMouseClickGrabsKeyboardFocus (false);
        content.setInterceptsMouseClicks (false, true);
        window.setInterceptsMouseClicks (false, true);
        window.addAndMakeVisible (content);
        addAndMakeVisible (window);
    }

    void resized() override { window.setBounds (getLocalBounds().reduced (tokens.padding)); }

    void paint (juce::Graphics& g) override
    {
        const auto face = getLocalBounds().toFloat().reduced (0.5f);
        fillPanel (g, face, tokens.surface, tokens.cornerRadius);
        g.setColour (tokens.edge);
        g.drawRoundedRectangle (face, tokens.cornerRadius, style::Theme::get().strokeWidth);
    }

    const style::ListTokens& tokens;
    SilentComponent content; // as tall as all rows
    SilentComponent window;  // what is seen of it
};

DropDownList::DropDownList (juce::Component& anchorToUse, const style::ListTokens& tokensToUse)
    : juce::ComponentMovementWatcher (&anchorToUse),
      anchor (anchorToUse),
      tokens (tokensToUse),
      surface (std::make_unique<Surface> (tokens))
{
    setWantsKeyboardFocus (true); // as long as it is open
    setFocusContainerType (FocusContainerType::keyboardFocusContainer);
    addAndMakeVisible (*surface);
}

DropDownList::~DropDownList()
{
    keyboard.giveBack (*this);
}

void DropDownList::open (std::vector<ListItem> items)
{
    auto& parent = coveredBy (anchor);

    if (isOpen() || items.empty() || &parent == &anchor)
        return;

    setTitle (anchor.getTitle());
    fill (std::move (items));
    parent.addAndMakeVisible (*this);
    place();
    keyboard.take (*this);

    const auto ticked = std::find_if (rows.begin(), rows.end(), [] (const auto& row) { return row->item.isTicked; });
    highlight (ticked != rows.end() ? ticked->get() : nullptr);
    scrollToHighlighted();
    juce::NullCheckedInvocation::invoke (onOpenChanged);
}

void DropDownList::close()
{
    if (! isOpen())
        return;

    // The rows stay until the next opening: this may be called from one of them.
    highlighted = nullptr;
    keyboard.giveBack (*this);
    getParentComponent()->removeChildComponent (this);
    juce::NullCheckedInvocation::invoke (onOpenChanged);
}

void DropDownList::setItems (std::vector<ListItem> items)
{
    if (! isOpen())
        return;

    if (items.empty())
        return close();

    fill (std::move (items));
    place();
}

void DropDownList::setScale (float newScale)
{
    if (newScale == scale || ! (newScale > 0.0f))
        return;

    scale = newScale;
    place();
}

void DropDownList::fill (std::vector<ListItem> items)
{
    highlighted = nullptr;
    rows.clear();
    const auto isTicked = [] (const ListItem& item) { return item.isTicked; };
    const auto isChoice = std::any_of (items.begin(), items.end(), isTicked);
    auto width = std::max (tokens.minimumWidth, anchor.getWidth()) - 2 * tokens.padding;
    auto height = 0;

    for (auto& item : items)
    {
        auto& row = *rows.emplace_back (std::make_unique<Row> (*this, std::move (item)));
        row.setToggleable (isChoice && row.canBeChosen());
        row.setBounds (0, height, 0, row.getPreferredHeight());
        surface->content.addAndMakeVisible (row);
        width = std::max (width, std::min (row.getPreferredWidth(), tokens.maximumWidth - 2 * tokens.padding));
        height = row.getBottom();
    }

    for (const auto& row : rows)
        row->setSize (width, row->getHeight());

    surface->content.setSize (width, height);
}

void DropDownList::place()
{
    if (! isOpen() || anchor.getWidth() <= 0)
        return;

    setBounds (getParentComponent()->getLocalBounds());

    const auto window = getLocalBounds().toFloat();
    const auto beside = getLocalArea (&anchor, anchor.getLocalBounds().toFloat());
    const auto room = window.reduced (
        std::min ({ static_cast<float> (tokens.windowMargin), window.getWidth() / 4.0f, window.getHeight() / 4.0f }));
    const auto ownWidth = static_cast<float> (surface->content.getWidth() + 2 * tokens.padding);
    const auto ownHeight = static_cast<float> (surface->content.getHeight() + 2 * tokens.padding);
    const auto anchorScale = beside.getWidth() / static_cast<float> (anchor.getWidth());
    const auto fitted = std::min (std::max (anchorScale * scale, tokens.minimumScale), room.getWidth() / ownWidth);
    const auto gap = static_cast<float> (tokens.gapToAnchor) * fitted;

    const auto roomBelow = room.getBottom() - beside.getBottom() - gap;
    const auto roomAbove = beside.getY() - gap - room.getY();
    const auto width = ownWidth * fitted;
    const auto height = std::min (
        ownHeight * fitted, std::max ({ roomBelow, roomAbove, static_cast<float> (tokens.rowHeight) * fitted }));
    const auto upwards = tokens.opensUpwards ? roomAbove >= height : roomBelow < height;

    const auto x = tokens.endsAtAnchor ? beside.getRight() - width : beside.getX();
    const auto y = upwards ? beside.getY() - gap - height : beside.getBottom() + gap;
    surface->setSize (juce::roundToInt (ownWidth), static_cast<int> (height / fitted + 0.01f));
    surface->setTransform (juce::AffineTransform::scale (fitted).translated (
        std::clamp (x, room.getX(), std::max (room.getX(), room.getRight() - width)),
        std::clamp (y, room.getY(), std::max (room.getY(), room.getBottom() - height))));
    scrollBy (0);
    repaint();
}

void DropDownList::scrollBy (int distance)
{
    auto& content = surface->content;
    const auto furthest = std::max (content.getHeight() - surface->window.getHeight(), 0);
    content.setTopLeftPosition (0, -std::clamp (distance - content.getY(), 0, furthest));
}

void DropDownList::scrollToHighlighted()
{
    if (highlighted == nullptr)
        return;

    const auto seen = surface->window.getLocalBounds() - surface->content.getPosition();
    scrollBy (
        std::min (highlighted->getY() - seen.getY(), 0) + std::max (highlighted->getBottom() - seen.getBottom(), 0));
}

const ListItem* DropDownList::getHighlighted() const
{
    return highlighted != nullptr ? &highlighted->item : nullptr;
}

juce::Rectangle<int> DropDownList::getListBounds() const
{
    return surface->getBoundsInParent();
}

DropDownList* DropDownList::findOpenIn (const juce::Component& parent)
{
    for (auto* const child : parent.getChildren())
        if (auto* const list = dynamic_cast<DropDownList*> (child))
            return list;

    return nullptr;
}

int DropDownList::highlightedPlace() const
{
    const auto found =
        std::find_if (rows.begin(), rows.end(), [this] (const auto& row) { return row.get() == highlighted; });
    return found != rows.end() ? static_cast<int> (found - rows.begin()) : -1;
}

void DropDownList::step (int from, int direction, const std::function<bool (const Row&)>& isWanted)
{
    const auto count = static_cast<int> (rows.size());

    for (int i = 1; i <= count; ++i)
    {
        auto& row = *rows[static_cast<std::size_t> (((from + i * direction) % count + count) % count)];

        if (row.canBeChosen() && isWanted (row))
        {
            highlight (&row);
            scrollToHighlighted();
            return;
        }
    }
}

void DropDownList::moveHighlight (int direction)
{
    const auto place = highlightedPlace();
    step (place < 0 && direction < 0 ? 0 : place, direction, [] (const Row&) { return true; });
}

void DropDownList::highlight (Row* row)
{
    for (auto* changed : { std::exchange (highlighted, row), row })
        if (changed != nullptr)
            changed->repaint();

    if (row != nullptr && row->isShowing())
        if (auto* const handler = row->getAccessibilityHandler())
            handler->grabFocus();
}

void DropDownList::choose (const Row& row)
{
    if (! isOpen() || ! row.canBeChosen())
        return;

    const auto callback = row.item.choose; // a copy, since it may delete the list
    close();

    if (callback != nullptr)
        callback();
}

void DropDownList::paint (juce::Graphics& g)
{
    if (! tokens.shadow.isTransparent())
        juce::DropShadow (tokens.shadow, 14, { 0, 4 }).drawForRectangle (g, getListBounds().reduced (2));
}

void DropDownList::mouseDown (const juce::MouseEvent&)
{
    close();
}

void DropDownList::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails& wheel)
{
    constexpr auto rowsPerNotch = 4.0f;
    scrollBy (juce::roundToInt (-rowsPerNotch * wheel.deltaY * static_cast<float> (tokens.rowHeight)));
}

bool DropDownList::keyPressed (const juce::KeyPress& key)
{
    const auto any = [] (const Row&) { return true; };
    const auto letter = juce::CharacterFunctions::toLowerCase (key.getTextCharacter());
    const auto startsWithLetter = [letter] (const Row& row)
    { return juce::CharacterFunctions::toLowerCase (row.item.text[0]) == letter; };

    if (key == juce::KeyPress::escapeKey || key.isKeyCode (juce::KeyPress::tabKey))
        close();
    else if (key == juce::KeyPress::downKey || key == juce::KeyPress::upKey)
        moveHighlight (key == juce::KeyPress::downKey ? 1 : -1);
    else if (key == juce::KeyPress::homeKey)
        step (-1, 1, any);
    else if (key == juce::KeyPress::endKey)
        step (0, -1, any);
    else if (key == juce::KeyPress::returnKey || key == juce::KeyPress::spaceKey)
    {
        if (highlighted != nullptr)
            choose (*highlighted);
    }
    else if (const auto held = key.getModifiers(); letter > ' ' && ! held.isCommandDown() && ! held.isAltDown() &&
             std::any_of (rows.begin(), rows.end(), [&] (const auto& row) { return startsWithLetter (*row); }))
        step (highlightedPlace(), 1, startsWithLetter);
    else
        return false;

    return true;
}

void DropDownList::parentSizeChanged()
{
    place();
}

void DropDownList::componentMovedOrResized (juce::Component& moved, bool wasMoved, bool wasResized)
{
    juce::ComponentMovementWatcher::componentMovedOrResized (moved, wasMoved, wasResized);
    place(); // also for a new transform, which the watcher takes for no change
}

void DropDownList::componentMovedOrResized (bool, bool) {}

void DropDownList::componentPeerChanged()
{
    close();
}

void DropDownList::componentVisibilityChanged()
{
    if (! anchor.isShowing())
        close();
}

std::unique_ptr<juce::AccessibilityHandler> DropDownList::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::popupMenu);
}

} // namespace quillon::ui_pro::primitives
