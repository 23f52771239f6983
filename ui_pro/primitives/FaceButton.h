#pragma once

#include "ui_pro/primitives/ButtonLook.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <optional>

namespace quillon::ui_pro::primitives
{

/** What can be clicked: a face drawn from a ButtonLook, hooks around each click of the user, and what a screen reader
    needs to know. The Tab key reaches it, Return and Space press it, Down opens what it opens; a click does not take
   the keyboard from the host. A press from a screen reader or a key is delivered as a message of its own, so it may
   delete the button. Message thread. */
class FaceButton : public juce::Button
{
public:
    using ButtonLook = primitives::ButtonLook;

    FaceButton (const juce::String& name, juce::Colour accentColour);

    /** Called before a click of the user has any effect, and after it has had all of them, listeners and onClick
        included. A state that is set from the program calls neither. A click that deletes the button has no end. */
    std::function<void()> onGestureStart;
    std::function<void()> onGestureEnd;

    /** Offered every key while the button has the keyboard, before the button takes it; true when it is taken. */
    std::function<bool (const juce::KeyPress&)> onKey;

    /** What a screen reader reads as the button's value; without it a toggle's is "On" or "Off". */
    std::function<juce::String()> valueText;

    void setColour (juce::Colour newAccent);

    juce::Colour getColour() const { return accent; }

    /** What a screen reader takes the button for, if not for a button or a toggle. */
    void setRole (juce::AccessibilityRole newRole);

    /** Reports whether what the button opens is open; to be called with false in the constructor. */
    void setOpen (bool shouldBeOpen);

    bool isOpen() const { return open.value_or (false); }

    /** The other buttons of the mouse then press nothing. */
    void setOnlyLeftButton (bool shouldBeOnly) { onlyLeftButton = shouldBeOnly; }

    /** Draws the face in any state over the button's bounds, and not outside them. */
    virtual void paintFace (juce::Graphics& g, const ButtonLook& look) const = 0;

    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    bool keyPressed (const juce::KeyPress& key) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

protected:
    /** A screen reader has moved onto the button. */
    virtual void reached() {}

    void internalClickCallback (const juce::ModifierKeys& modifiers) override;
    void paintButton (juce::Graphics& g, bool isHighlighted, bool isDown) final;

private:
    class Accessible;

    using juce::Component::setColour; // of the look and feel, which these buttons do not ask

    juce::Colour accent;
    std::optional<juce::AccessibilityRole> role;
    std::optional<bool> open; // of a button that opens something
    bool onlyLeftButton = false;
};

} // namespace quillon::ui_pro::primitives
