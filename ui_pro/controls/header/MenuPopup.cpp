#include "ui_pro/controls/header/MenuPopup.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::controls
{

juce::AffineTransform placeMenuList (
    juce::Rectangle<float> button, juce::Rectangle<float> window, juce::Rectangle<float> list, float scale)
{
    const auto& tokens = style::Theme::get().menu;
    const auto room = window.reduced (
        std::min ({ static_cast<float> (tokens.windowMargin), window.getWidth() / 4.0f, window.getHeight() / 4.0f }));
    const auto fitted = std::min ({ scale, room.getWidth() / list.getWidth(), room.getHeight() / list.getHeight() });
    const auto width = list.getWidth() * fitted;
    const auto height = list.getHeight() * fitted;
    const auto gap = static_cast<float> (tokens.gapToButton) * fitted;

    const auto below = button.getBottom() + gap;
    const auto above = button.getY() - gap - height;
    const auto roomier = room.getBottom() - below >= height || button.getY() < room.getBottom() - button.getBottom();

    const auto x = std::clamp (button.getRight() - width, room.getX(), std::max (room.getX(), room.getRight() - width));
    const auto y = std::clamp (roomier ? below : above, room.getY(), std::max (room.getY(), room.getBottom() - height));
    return juce::AffineTransform::scale (fitted).translated (x, y);
}

/** The surface that the rows stand on. */
class MenuPopup::List final : public juce::Component
{
public:
    void paint (juce::Graphics& g) override
    {
        const auto& theme = style::Theme::get();
        const auto face = getLocalBounds().toFloat().reduced (0.5f);
        primitives::fillPanel (g, face, theme.menu.surface, theme.menu.cornerRadius);
        g.setColour (theme.menu.edge);
        g.drawRoundedRectangle (face, theme.menu.cornerRadius, theme.strokeWidth);
    }

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override
    {
        return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::popupMenu);
    }
};

/** A line, a heading, or an item. */
class MenuPopup::Row final : public juce::Component, public juce::SettableTooltipClient
{
public:
    static constexpr int noItem = -1;

    Row (MenuPopup& popup, MenuItem shown, int index)
        : item (std::move (shown)),
          itemIndex (index),
          owner (popup)
    {
        setTitle (item.text);
        setTooltip (item.tooltip);
        setHelpText (item.tooltip);
        setAccessible (item.kind != MenuItem::Kind::separator);
        setEnabled (item.isChoosable() || item.kind == MenuItem::Kind::heading);
    }

    int getPreferredHeight() const
    {
        const auto& tokens = style::Theme::get().menu;
        return item.kind == MenuItem::Kind::separator ? tokens.separatorHeight
            : item.kind == MenuItem::Kind::heading    ? tokens.headingHeight
                                                      : tokens.rowHeight;
    }

    int getPreferredWidth() const
    {
        const auto& tokens = style::Theme::get().menu;
        return juce::GlyphArrangement::getStringWidthInt (style::regularFont (tokens.textSize), item.text) +
            2 * tokens.textInset + tokens.markWidth;
    }

    void paint (juce::Graphics& g) override
    {
        const auto& theme = style::Theme::get();
        const auto& tokens = theme.menu;
        auto area = getLocalBounds().reduced (tokens.textInset, 0);

        if (item.kind == MenuItem::Kind::separator)
        {
            g.setColour (tokens.edge);
            g.fillRect (area.withSizeKeepingCentre (area.getWidth(), 1));
            return;
        }

        if (item.kind == MenuItem::Kind::heading)
        {
            g.setColour (theme.core.textSecondary);
            g.setFont (style::boldFont (tokens.headingSize));
            g.drawText (item.text.toUpperCase(), area.withTrimmedTop (4), juce::Justification::centredLeft, true);
            return;
        }

        const auto lit = owner.highlighted == this;

        if (lit)
            primitives::fillPanel (
                g, getLocalBounds().toFloat(), pressed ? tokens.rowPressed : tokens.rowHover, tokens.rowRadius);

        g.setColour (! isEnabled() ? theme.core.textMuted : lit ? theme.core.textPrimary : theme.core.textBright);
        const auto mark = area.removeFromRight (tokens.markWidth);

        if (item.kind == MenuItem::Kind::link)
            drawToolIcon (
                g, ToolIcon::externalLink, mark.withSizeKeepingCentre (15, 15).withRightX (mark.getRight()).toFloat());

        g.setFont (style::regularFont (tokens.textSize));
        g.drawText (item.text, area, juce::Justification::centredLeft, true);
    }

    void mouseEnter (const juce::MouseEvent&) override { owner.highlight (this); }

    void mouseExit (const juce::MouseEvent&) override { owner.highlight (nullptr); }

    void mouseDown (const juce::MouseEvent&) override { setPressed (true); }

    void mouseUp (const juce::MouseEvent& event) override
    {
        setPressed (false);

        if (event.mods.isLeftButtonDown() && item.isChoosable() && getLocalBounds().contains (event.getPosition()))
            owner.choose (itemIndex); // may delete this
    }

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override
    {
        if (! item.isChoosable())
            return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::staticText);

        return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::menuItem,
            juce::AccessibilityActions()
                .addAction (juce::AccessibilityActionType::focus, [this] { owner.highlight (this); })
                .addAction (juce::AccessibilityActionType::press, [this] { owner.choose (itemIndex); }));
    }

    const MenuItem item;
    const int itemIndex;

private:
    void setPressed (bool isPressed)
    {
        pressed = isPressed;
        repaint();
    }

    MenuPopup& owner;
    bool pressed = false;
};

MenuPopup::MenuPopup()
    : list (std::make_unique<List>())
{
    setName ("Menu");
    list->setTitle ("Menu");
    list->setMouseClickGrabsKeyboardFocus (false);
    setWantsKeyboardFocus (true); // for the arrow keys, as long as the menu is open
    addAndMakeVisible (*list);
}

MenuPopup::~MenuPopup() = default;

void MenuPopup::setItems (const std::vector<MenuItem>& items)
{
    highlighted = nullptr;
    rows.clear();
    juce::String section;

    const auto addRow = [this] (MenuItem item, int index)
    {
        auto& row = *rows.emplace_back (std::make_unique<Row> (*this, std::move (item), index));
        row.setMouseClickGrabsKeyboardFocus (false);
        list->addAndMakeVisible (row);
    };
    const auto addSpecial = [&addRow] (MenuItem::Kind kind, const juce::String& text) {
        addRow ({ {}, kind, text, {}, {}, {} }, Row::noItem);
    };

    for (std::size_t i = 0; i < items.size(); ++i)
    {
        if (const auto& next = items[i].section; next != section)
        {
            if (next.isNotEmpty())
                addSpecial (MenuItem::Kind::heading, next);
            else if (items[i].kind != MenuItem::Kind::separator)
                addSpecial (MenuItem::Kind::separator, {});

            section = next;
        }

        addRow (items[i], static_cast<int> (i));
    }

    const auto& tokens = style::Theme::get().menu;
    auto width = tokens.minimumWidth;
    auto height = tokens.padding;

    for (const auto& row : rows)
        width = std::clamp (row->getPreferredWidth() + 2 * tokens.padding, width, tokens.maximumWidth);

    for (const auto& row : rows)
    {
        row->setBounds (tokens.padding, height, width - 2 * tokens.padding, row->getPreferredHeight());
        height = row->getBottom();
    }

    list->setSize (width, height + tokens.padding);
    repaint();
}

void MenuPopup::placeBeside (juce::Rectangle<float> button, float scale)
{
    list->setTransform (placeMenuList (button, getLocalBounds().toFloat(), list->getLocalBounds().toFloat(), scale));
    repaint();
}

juce::Rectangle<int> MenuPopup::getListBounds() const
{
    return list->getBoundsInParent();
}

void MenuPopup::moveHighlight (int direction)
{
    const auto count = static_cast<int> (rows.size());
    const auto current =
        std::find_if (rows.begin(), rows.end(), [this] (const auto& row) { return row.get() == highlighted; });
    auto position = highlighted != nullptr ? static_cast<int> (current - rows.begin()) : direction > 0 ? -1 : count;

    for (int i = 0; i < count; ++i)
    {
        position = (position + direction + count) % count;

        if (auto& row = *rows[static_cast<std::size_t> (position)]; row.item.isChoosable())
        {
            highlight (&row);
            return;
        }
    }
}

int MenuPopup::getHighlightedItem() const
{
    return highlighted != nullptr ? highlighted->itemIndex : Row::noItem;
}

void MenuPopup::highlight (Row* row)
{
    if (row != nullptr && ! row->item.isChoosable())
        row = nullptr;

    if (row == highlighted)
        return;

    for (auto* changed : { std::exchange (highlighted, row), row })
        if (changed != nullptr)
            changed->repaint();
}

void MenuPopup::choose (int itemIndex)
{
    if (const auto callback = onChosen) // a copy, since it may delete the popup
        callback (itemIndex);
}

void MenuPopup::dismiss()
{
    if (const auto callback = onDismissed)
        callback();
}

void MenuPopup::paint (juce::Graphics& g)
{
    const auto& tokens = style::Theme::get().menu;
    juce::DropShadow (tokens.shadow, 14, { 0, 4 }).drawForRectangle (g, getListBounds().reduced (2));
}

void MenuPopup::mouseDown (const juce::MouseEvent& event)
{
    if (event.eventComponent == this)
        dismiss();
}

bool MenuPopup::keyPressed (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::escapeKey)
        dismiss();
    else if (key == juce::KeyPress::downKey)
        moveHighlight (1);
    else if (key == juce::KeyPress::upKey)
        moveHighlight (-1);
    else if (key == juce::KeyPress::returnKey && highlighted != nullptr)
        choose (highlighted->itemIndex);
    else
        return false;

    return true;
}

void MenuPopup::parentSizeChanged()
{
    if (const auto callback = onParentResized)
        callback();
}

} // namespace quillon::ui_pro::controls
