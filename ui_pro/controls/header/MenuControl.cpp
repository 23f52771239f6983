#include "ui_pro/controls/header/MenuControl.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

/** The outermost component within the window's frame. */
juce::Component& windowContentOf (juce::Component& component)
{
    auto* top = &component;

    while (top->getParentComponent() != nullptr &&
        dynamic_cast<juce::TopLevelWindow*> (top->getParentComponent()) == nullptr)
        top = top->getParentComponent();

    return *top;
}

} // namespace

MenuControl::MenuControl()
{
    setName ("Menu");
    setTitle ("Menu");
    setTooltip ("Menu");
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setBounds (style::Theme::get().headerTools.menu);
    refreshEnablement();
}

MenuControl::~MenuControl()
{
    closePopup();
}

void MenuControl::setItems (std::vector<MenuItem> newItems)
{
    items = cleanedMenuItems (std::move (newItems));
    refreshEnablement();

    if (items.empty())
    {
        closePopup();
    }
    else if (popup != nullptr)
    {
        popup->setItems (items);
        placePopup();
    }
}

void MenuControl::setItemHandler (ItemHandler newHandler)
{
    handler = std::move (newHandler);
    refreshEnablement();
}

void MenuControl::setScale (float newScale)
{
    if (newScale == scale || ! (newScale > 0.0f))
        return;

    scale = newScale;
    placePopup();
}

void MenuControl::refreshEnablement()
{
    setEnabled (! items.empty() && handler != nullptr);
}

float MenuControl::listScale (float buttonScale)
{
    return std::max (buttonScale, style::Theme::get().menu.minimumScale);
}

void MenuControl::openPopup()
{
    auto& window = windowContentOf (*this);

    if (popup != nullptr || ! isEnabled() || &window == this)
        return;

    popup = std::make_unique<Popup>();
    popup->setItems (items);
    popup->onChosen = [this] (int index) { choose (index); };
    popup->onDismissed = [this] { closePopup(); };
    popup->onParentResized = [this] { placePopup(); };
    window.addAndMakeVisible (*popup);
    placePopup();
    repaint();
    keyboard.take (*popup);
}

void MenuControl::closePopup()
{
    if (popup == nullptr)
        return;

    const auto closed = std::exchange (popup, nullptr);
    keyboard.giveBack (*closed);
    hovered = isMouseOver();
    repaint();
}

void MenuControl::placePopup()
{
    if (popup == nullptr || popup->getParentComponent() == nullptr || getWidth() <= 0)
        return;

    popup->setBounds (popup->getParentComponent()->getLocalBounds());

    const auto button = popup->getLocalArea (this, getLocalBounds().toFloat());
    const auto contentScale = button.getWidth() / static_cast<float> (getWidth());
    popup->placeBeside (button, listScale (contentScale * scale));
}

void MenuControl::choose (int index)
{
    if (index < 0 || index >= static_cast<int> (items.size()))
        return;

    // Copies: the handler may replace the items, or delete this control.
    const auto item = items[static_cast<std::size_t> (index)];
    const auto chosen = handler;
    closePopup();

    if (chosen != nullptr)
        chosen (item);
}

void MenuControl::paint (juce::Graphics& g)
{
    ButtonLook look;
    look.enabled = isEnabled();
    look.on = popup != nullptr;
    look.hovered = hovered;
    paintToolPlate (g, getLocalBounds(), look);
    drawToolIcon (g, ToolIcon::menu, getLocalBounds().withSizeKeepingCentre (20, 20).toFloat());
}

void MenuControl::mouseEnter (const juce::MouseEvent&)
{
    if (! std::exchange (hovered, true))
        repaint();
}

void MenuControl::mouseExit (const juce::MouseEvent&)
{
    if (std::exchange (hovered, false))
        repaint();
}

void MenuControl::mouseDown (const juce::MouseEvent& event)
{
    if (event.mods.isLeftButtonDown())
        openPopup();
}

void MenuControl::enablementChanged()
{
    repaint();
}

void MenuControl::visibilityChanged()
{
    if (! isVisible())
        closePopup();
}

void MenuControl::parentHierarchyChanged()
{
    if (popup != nullptr && popup->getParentComponent() != &windowContentOf (*this))
        closePopup();
}

std::unique_ptr<juce::AccessibilityHandler> MenuControl::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::button,
        juce::AccessibilityActions()
            .addAction (juce::AccessibilityActionType::press, [this] { openPopup(); })
            .addAction (juce::AccessibilityActionType::showMenu, [this] { openPopup(); }));
}

} // namespace quillon::ui_pro::controls
