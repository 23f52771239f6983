#pragma once

#include "ui_pro/controls/knob/KnobControl.h"
#include "ui_pro/primitives/GestureHooks.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace quillon::ui_pro::controls
{

/** Connects a knob to a parameter: the parameter moves the knob silently, a drag of the knob is one gesture, and a
   double click one that sets the default. Goes before the knob, and ends a drag that is under way. Message thread. */
class KnobAttachment final : public juce::ParameterAttachment
{
public:
    /** Parameter, knob and undo manager, which may be null, must outlive this object. */
    KnobAttachment (juce::RangedAudioParameter& parameterToUse, KnobControl& knobToUse,
        primitives::GestureHooks hooksToUse, juce::UndoManager* undo = nullptr);
    ~KnobAttachment() override;

private:
    void show (float position);
    void drag (float position);
    void reset();

    juce::RangedAudioParameter& parameter;
    KnobControl& knob;
    primitives::GestureHooks hooks;
};

} // namespace quillon::ui_pro::controls
