#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <ostream>

namespace kestreleq::shot
{

/** Writes where everything visible with an accessible name stands: a line of x, y, width and height, in pixels of the
    window, and the name, which ends the line. The first line is the window's own. Message thread. */
void listPlaces (juce::Component& window, std::ostream& out);

} // namespace kestreleq::shot
