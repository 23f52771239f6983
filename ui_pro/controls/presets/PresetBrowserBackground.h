#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::controls::presets
{

/** Draws what never changes in the preset browser: its surface, rules, headings and the table's recess. */
void drawBrowserBackground (juce::Graphics& g);

} // namespace quillon::ui_pro::controls::presets
