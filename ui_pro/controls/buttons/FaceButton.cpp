#include "ui_pro/controls/buttons/FaceButton.h"

namespace quillon::ui_pro::controls
{
namespace
{

class ToggleText final : public juce::AccessibilityTextValueInterface
{
public:
    explicit ToggleText (const juce::Button& toggle)
        : button (toggle)
    {
    }

    bool isReadOnly() const override { return true; }

    juce::String getCurrentValueAsString() const override { return button.getToggleState() ? "On" : "Off"; }

    void setValueAsString (const juce::String&) override {}

private:
    const juce::Button& button;
};

/** The framework's own handler toggles the state past the click, so that the hooks would not be called. */
class FaceButtonAccessibility final : public juce::AccessibilityHandler
{
public:
    explicit FaceButtonAccessibility (FaceButton& face)
        : AccessibilityHandler (face,
              face.isToggleable() ? juce::AccessibilityRole::toggleButton : juce::AccessibilityRole::button,
              actionsOf (face), interfacesOf (face)),
          button (face)
    {
    }

    juce::AccessibleState getCurrentState() const override
    {
        const auto state = AccessibilityHandler::getCurrentState();

        if (! button.isToggleable())
            return state;

        return button.getToggleState() ? state.withCheckable().withChecked() : state.withCheckable();
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
    static juce::AccessibilityActions actionsOf (FaceButton& face)
    {
        const auto click = [&face] { face.triggerClick(); };
        juce::AccessibilityActions actions;
        actions.addAction (juce::AccessibilityActionType::press, click);

        if (face.isToggleable())
            actions.addAction (juce::AccessibilityActionType::toggle, click);

        return actions;
    }

    static Interfaces interfacesOf (const FaceButton& face)
    {
        return face.isToggleable() ? Interfaces { std::make_unique<ToggleText> (face) } : Interfaces {};
    }

    FaceButton& button;
};

} // namespace

FaceButton::FaceButton (const juce::String& name, juce::Colour accentColour)
    : juce::Button (name),
      accent (accentColour)
{
    setButtonText ({});
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
}

void FaceButton::setColour (juce::Colour newAccent)
{
    if (accent == newAccent)
        return;

    accent = newAccent;
    repaint();
}

std::unique_ptr<juce::AccessibilityHandler> FaceButton::createAccessibilityHandler()
{
    return std::make_unique<FaceButtonAccessibility> (*this);
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

} // namespace quillon::ui_pro::controls
