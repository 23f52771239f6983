#include "ui_pro/controls/knob/KnobAttachment.h"

#include "ui_pro/primitives/ParameterTag.h"

#include <utility>

namespace quillon::ui_pro::controls
{

KnobAttachment::KnobAttachment (juce::RangedAudioParameter& parameterToUse, KnobControl& knobToUse,
    primitives::GestureHooks hooksToUse, juce::UndoManager* undo)
    : ParameterAttachment (
          parameterToUse, [this] (float value) { show (parameter.convertTo0to1 (value)); }, undo),
      parameter (parameterToUse),
      knob (knobToUse),
      hooks (std::move (hooksToUse))
{
    primitives::setParameterIndex (knob, parameter.getParameterIndex());
    knob.onDragStart = [this]
    {
        juce::NullCheckedInvocation::invoke (hooks.start);
        beginGesture();
    };
    knob.onValueChange = [this] (float position) { drag (position); };
    knob.onDragEnd = [this]
    {
        endGesture();
        juce::NullCheckedInvocation::invoke (hooks.end);
    };
    knob.onDoubleClick = [this] { reset(); };
    knob.positionOf = [this] (const juce::String& text) { return parameter.getValueForText (text); };
    sendInitialUpdate();
}

KnobAttachment::~KnobAttachment()
{
    knob.endDrag(); // its owner may go away under the pointer
    knob.onDragStart = nullptr;
    knob.onValueChange = nullptr;
    knob.onDragEnd = nullptr;
    knob.onDoubleClick = nullptr;
    knob.positionOf = nullptr;
}

void KnobAttachment::show (float position)
{
    knob.setValue (position);
    knob.setValueText (parameter.getText (position, 0));
}

void KnobAttachment::drag (float position)
{
    setValueAsPartOfGesture (parameter.convertFrom0to1 (position));
    knob.setValueText (parameter.getText (position, 0));
}

void KnobAttachment::reset()
{
    juce::NullCheckedInvocation::invoke (hooks.start);
    setValueAsCompleteGesture (parameter.convertFrom0to1 (parameter.getDefaultValue()));
    juce::NullCheckedInvocation::invoke (hooks.end);
    show (parameter.getDefaultValue());
}

} // namespace quillon::ui_pro::controls
