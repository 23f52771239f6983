#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace kestreleq
{

/** The layout of the parameter tree: the rows of parameterTable in order, each on the plain range 0..1 with version
    hint 1. */
juce::AudioProcessorValueTreeState::ParameterLayout createParameterLayout();

} // namespace kestreleq
