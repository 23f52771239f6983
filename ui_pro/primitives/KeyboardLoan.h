#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::primitives
{

/** The keyboard, taken by a popup for as long as it is open. Message thread. */
class KeyboardLoan
{
public:
    void take (juce::Component& popup)
    {
        owner = juce::Component::getCurrentlyFocusedComponent();

        if (popup.isShowing())
            popup.grabKeyboardFocus();
    }

    /** To whoever had it before; if that was the host, it must not stay here. */
    void giveBack (juce::Component& popup)
    {
        if (! popup.hasKeyboardFocus (true))
            return;

        if (owner != nullptr && owner->isShowing())
            owner->grabKeyboardFocus();
        else
            popup.giveAwayKeyboardFocus();
    }

private:
    juce::Component::SafePointer<juce::Component> owner;
};

} // namespace quillon::ui_pro::primitives
