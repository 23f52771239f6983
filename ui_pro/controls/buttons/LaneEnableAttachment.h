#pragma once

#include "ui_pro/primitives/ParameterTag.h"

#include <juce_audio_processors/juce_audio_processors.h>
#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::controls
{

/** Connects a toggle to a bypass parameter: on while the value is below 0.5, and one gesture per click. A change from
    outside runs no click action. Goes before the button. Message thread. */
class LaneEnableAttachment final : public juce::ParameterAttachment, private juce::Button::Listener
{
public:
    /** Parameter, button and undo manager, which may be null, must outlive this object. */
    LaneEnableAttachment (
        juce::RangedAudioParameter& bypass, juce::Button& buttonToUse, juce::UndoManager* undo = nullptr)
        : ParameterAttachment (
              bypass, [this] (float value) { button.setToggleState (value < 0.5f, juce::dontSendNotification); }, undo),
          button (buttonToUse)
    {
        primitives::setParameterIndex (button, bypass.getParameterIndex());
        button.setClickingTogglesState (true);
        button.addListener (this);
        sendInitialUpdate();
    }

    ~LaneEnableAttachment() override { button.removeListener (this); }

private:
    /** The button has already changed when it is clicked. */
    void buttonClicked (juce::Button*) override { setValueAsCompleteGesture (button.getToggleState() ? 0.0f : 1.0f); }

    juce::Button& button;
};

} // namespace quillon::ui_pro::controls
