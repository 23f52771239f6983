#pragma once

#include "ui_pro/controls/buttons/ButtonLook.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace quillon::ui_pro::controls
{

/** What the library's buttons have in common: a face drawn from a ButtonLook, no keyboard focus taken from the host by
    a click, and hooks around each click of the user, from the mouse, the keyboard or a screen reader. Message thread.
 */
class FaceButton : public juce::Button
{
public:
    FaceButton (const juce::String& name, juce::Colour accentColour);

    /** Called before a click of the user has any effect, and after it has had all of them, listeners and onClick
        included. A state that is set from the program calls neither. A click that deletes the button has no end. */
    std::function<void()> onGestureStart;
    std::function<void()> onGestureEnd;

    void setColour (juce::Colour newAccent);

    juce::Colour getColour() const { return accent; }

    /** Draws the face in any state over the button's bounds, and not outside them. */
    virtual void paintFace (juce::Graphics& g, const ButtonLook& look) const = 0;

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

protected:
    void internalClickCallback (const juce::ModifierKeys& modifiers) override;
    void paintButton (juce::Graphics& g, bool isHighlighted, bool isDown) final;

private:
    using juce::Component::setColour; // of the look and feel, which these buttons do not ask

    juce::Colour accent;
};

} // namespace quillon::ui_pro::controls
