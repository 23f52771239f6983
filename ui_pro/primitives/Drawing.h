#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::primitives
{

/** Fills a rounded rectangle. */
void fillPanel (juce::Graphics& g, juce::Rectangle<float> r, juce::Colour colour, float cornerRadius);

/** Shades the top and left edges of a rounded rectangle, for light that comes from the lower right. Strength is the
    alpha, 0 to 1, of the shade at the top edge. */
void drawInnerShadow (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius, float strength);

/** Darkens the corners of a rounded rectangle. */
void drawVignette (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius);

/** A radial gradient in white around r's centre, from one alpha through another at 0.55 to nothing at 0.55 of the
    longer side. */
void drawSheen (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius, float centreAlpha, float middleAlpha);

/** A tick in the accent colour: chosen, or in force. */
void drawTick (juce::Graphics& g, juce::Point<float> centre);

} // namespace quillon::ui_pro::primitives
