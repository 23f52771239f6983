#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace quillon::ui_pro::controls
{

class KnobControl;

/** Shows a knob to screen readers as an adjustable value from 0 to 1 with its text; what they set is a drag of its own,
    and so one gesture. */
std::unique_ptr<juce::AccessibilityHandler> makeKnobAccessibility (KnobControl& knob);

} // namespace quillon::ui_pro::controls
