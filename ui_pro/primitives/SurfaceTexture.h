#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::primitives
{

/** Lays a fine grain over r, the same at every call, so that large dark gradients show no bands. Strength is the alpha,
    0 to 1, of the grain's brightest and darkest dots. */
void drawSurfaceTexture (juce::Graphics& g, juce::Rectangle<float> r, float strength);

} // namespace quillon::ui_pro::primitives
