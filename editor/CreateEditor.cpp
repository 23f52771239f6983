#include "engine/KestrelProcessor.h"

namespace kestreleq
{

juce::AudioProcessorEditor* KestrelProcessor::createEditor()
{
    return new juce::GenericAudioProcessorEditor (*this);
}

} // namespace kestreleq
