#pragma once

#include "ui_pro/controls/footer/FooterReadout.h"
#include "ui_pro/controls/knob/KnobControl.h"

#include <functional>

namespace quillon::ui_pro::controls
{

/** The footer's output mode: 0 Mono, 1 Stereo, 2 Multi; and a knob to choose it, where the owner shows one. */
class OutputModeControl final : public FooterReadout
{
public:
    static constexpr int numModes = 3;

    OutputModeControl();

    void setMode (int newMode);

    int getMode() const { return mode; }

    /** Off for an owner whose output mode is fixed. */
    void setKnobShown (bool shouldShow);

    bool isKnobShown() const { return knob.isVisible(); }

    KnobControl& getKnob() { return knob; }

    std::function<void (int)> onModeChange; // the user has turned the knob to this mode

    void resized() override;

private:
    juce::Rectangle<int> getTextArea() const override;

    int mode = 0;
    KnobControl knob;
};

} // namespace quillon::ui_pro::controls
