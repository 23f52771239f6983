#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::primitives
{

/** The state that a button's face shows. */
struct ButtonLook
{
    bool on = false;
    bool hovered = false;
    bool pressed = false;
    bool enabled = true;
    bool focused = false; // by the keyboard
};

/** The plate that the library's buttons are drawn on: a rounded rectangle of the whole area r, lit in the accent when
    on, a step brighter under the mouse, sunk while pressed, with a ring when focused. Stays within r. */
void paintButtonPlate (juce::Graphics& g, juce::Rectangle<float> r, juce::Colour accent, const ButtonLook& look);

/** The colour of a text or an icon on that plate. */
juce::Colour plateTextColour (juce::Colour accent, const ButtonLook& look);

/** A ring along the inside of r, for a button that the keyboard has reached. */
void paintFocusRing (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius);

/** The accent as a disabled control shows it. */
juce::Colour disabledAccent (juce::Colour accent);

} // namespace quillon::ui_pro::primitives
