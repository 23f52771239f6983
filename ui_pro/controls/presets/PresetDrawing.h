#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::controls::presets
{

/** What a part of the selector or of its browser looks like at a moment. */
struct PartState
{
    bool isEnabled = true;
    bool isHovered = false;
    bool isPressed = false;
    bool isActive = false; // chosen, open or in force

    bool operator== (const PartState&) const = default;
};

/** A button's surface and outline. A disabled one has no surface. */
void drawFace (juce::Graphics& g, const juce::Path& shape, const PartState& state);

/** A recess that shows a value or takes a text. */
void drawWell (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius);

/** The surface of a line in a list; an active one has a bar of the accent at its left edge. */
void drawLine (juce::Graphics& g, juce::Rectangle<float> r, const PartState& state);

void drawFocusRing (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius);

juce::Colour textColour (const PartState& state);

/** One line, shortened with dots when it does not fit even at the narrowest allowed, a share of its natural width. */
void drawText (juce::Graphics& g, const juce::String& text, juce::Rectangle<int> area, juce::Justification position,
    float narrowest = 1.0f);

/** A chevron around a point, `reach` wide along its open side; direction 0 is right, 1 down, 2 left, 3 up. */
void drawChevron (juce::Graphics& g, juce::Point<float> centre, float reach, int direction);

} // namespace quillon::ui_pro::controls::presets
