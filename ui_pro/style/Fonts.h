#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** The framework's default sans-serif face in the two styles that the library uses; size in design pixels. */
juce::Font boldFont (float size);
juce::Font regularFont (float size);

} // namespace quillon::ui_pro::style
