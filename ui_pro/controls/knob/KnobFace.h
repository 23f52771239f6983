#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::controls
{

/** Angles in radians, clockwise from twelve o'clock. */
constexpr float knobStartAngle = 1.25f * juce::MathConstants<float>::pi;
constexpr float knobSweep = 1.5f * juce::MathConstants<float>::pi;

/** What of a knob's looks can change while the knob stands still. */
struct KnobLook
{
    float value = 0.0f; // 0 to 1
    juce::Colour accent;
    bool enabled = true;
    bool highlighted = false; // under the mouse, or being dragged
};

/** The part that no value changes: the body and the track over the whole range. Both parts stay within r. */
void paintKnobBody (juce::Graphics& g, juce::Rectangle<float> r, bool enabled);

/** The part that shows the value: the arc with its glow, and the pointer. */
void paintKnobValue (juce::Graphics& g, juce::Rectangle<float> r, const KnobLook& look);

} // namespace quillon::ui_pro::controls
