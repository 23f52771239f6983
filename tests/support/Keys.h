#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::test
{

/** Sends a key to the focused component and, while nothing takes it, to its parents, as a window would; returns
    whether it was taken. */
inline bool pressKey (juce::Component& focused, const juce::KeyPress& key)
{
    juce::Component::SafePointer<juce::Component> target (&focused);

    while (target != nullptr)
    {
        if (target->keyPressed (key))
            return true;

        if (target != nullptr)
            target = target->getParentComponent();
    }

    return false;
}

inline void typeText (juce::Component& focused, const juce::String& text)
{
    for (const auto character : text)
        pressKey (focused, juce::KeyPress (static_cast<int> (character), {}, character));
}

} // namespace kestreleq::test
