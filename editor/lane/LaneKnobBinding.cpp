#include "editor/lane/LaneKnobBinding.h"

#include <utility>

namespace kestreleq
{

LaneKnobBinding::LaneKnobBinding (juce::RangedAudioParameter& parameterToBind,
    quillon::ui_pro::controls::KnobControl& knobToBind, EditHistory& historyToUse, std::function<void()> stepCallback)
    : parameter (parameterToBind),
      knob (knobToBind),
      history (historyToUse),
      onStep (std::move (stepCallback)),
      attachment (parameterToBind, [this] (float value) { show (value); })
{
    knob.onDragStart = [this] { beginStep(); };
    knob.onValueChange = [this] (float value)
    {
        attachment.setValueAsPartOfGesture (parameter.convertFrom0to1 (value));
        knob.setValueText (parameter.getText (value, 0));
    };
    knob.onDragEnd = [this] { endStep(); };
    knob.onDoubleClick = [this] { reset(); };
    attachment.sendInitialUpdate();
}

LaneKnobBinding::~LaneKnobBinding()
{
    knob.endDrag(); // a host may close the window under the pointer
    knob.onDragStart = nullptr;
    knob.onValueChange = nullptr;
    knob.onDragEnd = nullptr;
    knob.onDoubleClick = nullptr;
}

void LaneKnobBinding::show (float value)
{
    const auto position = parameter.convertTo0to1 (value);
    knob.setValue (position);
    knob.setValueText (parameter.getText (position, 0));
}

void LaneKnobBinding::beginStep()
{
    history.beginStep();
    attachment.beginGesture();
    onStep();
}

void LaneKnobBinding::endStep()
{
    attachment.endGesture();
    history.endStep();
    onStep();
}

void LaneKnobBinding::reset()
{
    history.beginStep();
    attachment.setValueAsCompleteGesture (parameter.convertFrom0to1 (parameter.getDefaultValue()));
    history.endStep();
    show (parameter.convertFrom0to1 (parameter.getDefaultValue()));
    onStep();
}

} // namespace kestreleq
