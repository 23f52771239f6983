#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::primitives
{

/** The keyboard, taken by a popup for as long as it is open. Where it goes to something else in the same window, as
   when the system gives a clicked window its keyboard late, the popup that was opened last takes it again. Message
   thread.
 */
class KeyboardLoan final : private juce::FocusChangeListener
{
public:
    KeyboardLoan() = default;

    ~KeyboardLoan() override { end(); }

    /** For the popup and all in it; `first` is the part that gets it now, and again. */
    void take (juce::Component& popup, juce::Component& first);

    void take (juce::Component& popup) { take (popup, popup); }

    /** To whoever had it before; if that was the host, it must not stay here. */
    void giveBack (juce::Component& popup);

private:
    void globalFocusChanged (juce::Component* focused) override;
    void end();

    juce::Component::SafePointer<juce::Component> owner, borrower, target;

    JUCE_DECLARE_NON_COPYABLE (KeyboardLoan)
};

} // namespace quillon::ui_pro::primitives
