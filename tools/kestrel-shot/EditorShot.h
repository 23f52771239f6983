#pragma once

#include "tools/kestrel-shot/ShotOptions.h"

#include <juce_graphics/juce_graphics.h>

#include <ostream>

namespace kestreleq::shot
{

/** Draws the editor of a new processor, set up as the options say. Message thread. Throws host::Failure for an unknown
    parameter or a file that cannot be played. */
juce::Image shootEditor (const ShotOptions& options);

/** Prints where the controls of that editor stand (see Places.h), on the same terms. */
void listEditorPlaces (const ShotOptions& options, std::ostream& out);

} // namespace kestreleq::shot
