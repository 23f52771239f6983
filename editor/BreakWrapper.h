#pragma once

#include "ui_pro/primitives/RoleComponent.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq
{

/** Carries the BREAK button into the side panel, which lays out what it is handed as a whole. */
class BreakWrapper final : public quillon::ui_pro::primitives::SilentComponent
{
public:
    explicit BreakWrapper (juce::Button& buttonToCarry)
        : button (buttonToCarry)
    {
        setInterceptsMouseClicks (false, true);
        addAndMakeVisible (button);
    }

    void resized() override { button.setBounds (getLocalBounds()); }

private:
    juce::Button& button;
};

} // namespace kestreleq
