#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <string>

namespace kestreleq::shot
{

/** Paints a component, which needs no window, at a scale. */
juce::Image paintPicture (juce::Component& component, float scale);

/** Writes a PNG file, whole or not at all. Throws std::runtime_error. */
void writePng (const juce::Image& picture, const std::string& path);

} // namespace kestreleq::shot
