#pragma once

#include <juce_core/juce_core.h>

/** The names in the parameter tree, which are the framework's, and so in every saved state: never to be changed. */
namespace kestreleq::tree_names
{

inline const juce::Identifier parameters ("Parameters");
inline const juce::Identifier parameter ("PARAM");
inline const juce::Identifier id ("id");
inline const juce::Identifier value ("value");

} // namespace kestreleq::tree_names
