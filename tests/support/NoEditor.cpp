#include "engine/KestrelProcessor.h"

namespace kestreleq
{

/** For programs about the audio side: the editor and its library need not be built for them. */
juce::AudioProcessorEditor* KestrelProcessor::createEditor()
{
    return nullptr;
}

} // namespace kestreleq
