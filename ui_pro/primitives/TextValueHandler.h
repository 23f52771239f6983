#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>

namespace quillon::ui_pro::primitives
{

/** A value that is shown and nobody types in; the text is made when it is asked for. */
std::unique_ptr<juce::AccessibilityTextValueInterface> makeShownText (std::function<juce::String()> text);

/** Lets a screen reader ask a component for a value that it shows: a level, a read-out. `text` must stay callable as
   long as the component lives. */
std::unique_ptr<juce::AccessibilityHandler> makeTextValueHandler (juce::Component& component,
    juce::AccessibilityRole role, std::function<juce::String()> text, juce::AccessibilityActions actions = {});

} // namespace quillon::ui_pro::primitives
