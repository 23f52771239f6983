#include "engine/KestrelProcessor.h"

// Called by the framework's wrappers. (The declaration keeps the compiler from missing one.)
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter();

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    return new kestreleq::KestrelProcessor();
}
