#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace quillon::ui_pro::layout
{

/** The maker's mark: a wing of three feathers, in a box of 500 by 500. */
std::unique_ptr<juce::Drawable> makeLogo();

} // namespace quillon::ui_pro::layout
