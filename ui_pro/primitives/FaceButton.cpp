#include "ui_pro/primitives/FaceButton.h"

#include "ui_pro/primitives/TextValueHandler.h"

#include <utility>

namespace quillon::ui_pro::primitives
{

/** The framework's own handler toggles the state past the click, so that the hooks would not be called. */
class FaceButton::Accessible final : public juce::AccessibilityHandler
{
public:
    explicit Accessible (FaceButton& face)
        : AccessibilityHandler (face, roleOf (face), actionsOf (face), interfacesOf (face)),
          button (face)
    {
    }

    juce::AccessibleState getCurrentState() const override
    {
        auto state = AccessibilityHandler::getCurrentState();

        if (button.isToggleable())
            state = button.getToggleState() ? state.withCheckable().withChecked() : state.withCheckable();

        if (button.open.has_value())
            state = *button.open ? state.withExpandable().withExpanded() : state.withExpandable().withCollapsed();

        return state;
    }

    juce::String getTitle() const override
    {
        const auto title = AccessibilityHandler::getTitle();

        if (title.isNotEmpty())
            return title;

        return button.getButtonText().isNotEmpty() ? button.getButtonText() : button.getName();
    }

    juce::String getHelp() const override { return button.getTooltip(); }

private:
    static juce::AccessibilityRole roleOf (const FaceButton& face)
    {
        return face.role.value_or (
            face.isToggleable() ? juce::AccessibilityRole::toggleButton : juce::AccessibilityRole::button);
    }

    static juce::AccessibilityActions actionsOf (FaceButton& face)
    {
        using Action = juce::AccessibilityActionType;
        const auto click = [&face] { face.triggerClick(); };
        juce::AccessibilityActions actions;
        actions.addAction (Action::press, click).addAction (Action::focus, [&face] { face.reached(); });

        if (face.isToggleable())
            actions.addAction (Action::toggle, click);

        if (face.open.has_value())
            actions.addAction (Action::showMenu, click);

        return actions;
    }

    static Interfaces interfacesOf (const FaceButton& face)
    {
        if (face.valueText != nullptr)
            return { makeShownText (face.valueText) };

        if (face.isToggleable() && ! face.role.has_value())
            return { makeShownText ([&face] { return juce::String (face.getToggleState() ? "On" : "Off"); }) };

        return {};
    }

    FaceButton& button;
};

FaceButton::FaceButton (const juce::String& name, juce::Colour accentColour)
    : juce::Button (name),
      accent (accentColour)
{
    setButtonText ({});
    setMouseClickGrabsKeyboardFocus (false);
}

void FaceButton::setColour (juce::Colour newAccent)
{
    if (accent == newAccent)
        return;

    accent = newAccent;
    repaint();
}

void FaceButton::setRole (juce::AccessibilityRole newRole)
{
    role = newRole;
    invalidateAccessibilityHandler();
}

void FaceButton::setOpen (bool shouldBeOpen)
{
    if (std::exchange (open, shouldBeOpen) != shouldBeOpen)
        repaint();
}

void FaceButton::mouseDown (const juce::MouseEvent& event)
{
    if (! onlyLeftButton || event.mods.isLeftButtonDown())
        juce::Button::mouseDown (event);
}

void FaceButton::mouseDrag (const juce::MouseEvent& event)
{
    if (! onlyLeftButton || event.mods.isLeftButtonDown())
        juce::Button::mouseDrag (event);
}

bool FaceButton::keyPressed (const juce::KeyPress& key)
{
    if (onKey != nullptr && onKey (key))
        return true;

    if (isEnabled() && (key == juce::KeyPress::spaceKey || (open.has_value() && key == juce::KeyPress::downKey)))
    {
        triggerClick();
        return true;
    }

    return juce::Button::keyPressed (key);
}

std::unique_ptr<juce::AccessibilityHandler> FaceButton::createAccessibilityHandler()
{
    return std::make_unique<Accessible> (*this);
}

void FaceButton::internalClickCallback (const juce::ModifierKeys& modifiers)
{
    const juce::WeakReference<juce::Component> self (this);
    juce::NullCheckedInvocation::invoke (onGestureStart);
    juce::Button::internalClickCallback (modifiers);

    if (self != nullptr)
        juce::NullCheckedInvocation::invoke (onGestureEnd);
}

void FaceButton::paintButton (juce::Graphics& g, bool isHighlighted, bool isDown)
{
    ButtonLook look;
    look.on = getToggleState();
    look.hovered = isHighlighted;
    look.pressed = isDown;
    look.enabled = isEnabled();
    look.focused = hasKeyboardFocus (false);
    paintFace (g, look);
}

} // namespace quillon::ui_pro::primitives
