#include "engine/KestrelProcessor.h"

// Called by the framework's wrappers, and declared by none of our headers.
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter(); // NOLINT(readability-redundant-declaration)

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    return new kestreleq::KestrelProcessor();
}
