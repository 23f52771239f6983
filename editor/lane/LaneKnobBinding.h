#pragma once

#include "engine/EditHistory.h"
#include "ui_pro/controls/knob/KnobControl.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <memory>

namespace kestreleq
{

/** Connects one knob to one parameter: the parameter moves the knob silently, a drag of the knob is one gesture and one
    undoable step, and a double click one that sets the default. Goes before the knob. Message thread. */
class LaneKnobBinding
{
public:
    /** All must outlive this object. `onStep` is called when a step begins and when it is over, for whoever shows what
        can be undone. */
    LaneKnobBinding (juce::RangedAudioParameter& parameterToBind, quillon::ui_pro::controls::KnobControl& knobToBind,
        EditHistory& historyToUse, std::function<void()> onStep);
    ~LaneKnobBinding();

    LaneKnobBinding (const LaneKnobBinding&) = delete;
    LaneKnobBinding& operator= (const LaneKnobBinding&) = delete;

private:
    void show (float value);
    void beginStep();
    void endStep();
    void reset();

    juce::RangedAudioParameter& parameter;
    quillon::ui_pro::controls::KnobControl& knob;
    EditHistory& history;
    std::function<void()> onStep;
    juce::ParameterAttachment attachment;
};

} // namespace kestreleq
