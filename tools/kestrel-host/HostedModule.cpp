#include "tools/kestrel-host/HostedModule.h"

#include "engine/parameters/ParameterTable.h"
#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/Paths.h"

#include <algorithm>

namespace kestreleq::host
{
namespace
{

/** The known IDs of a hosted plug-in, in its order. A hosted parameter calls itself by the decimal text of its hash. */
std::vector<HostedModule::Parameter> matchParameters (const juce::AudioPluginInstance& instance)
{
    std::vector<HostedModule::Parameter> found;

    for (auto* parameter : instance.getParameters())
    {
        const auto* hosted = dynamic_cast<const juce::HostedAudioProcessorParameter*> (parameter);

        if (hosted == nullptr)
            continue;

        const auto hash = hosted->getParameterID();
        const auto isThisOne = [&] (const ParameterInfo& info)
        { return juce::String (juce::VST3ClientExtensions::convertJuceParameterId (info.id)) == hash; };
        const auto match = std::find_if (parameterTable.begin(), parameterTable.end(), isThisOne);

        if (match != parameterTable.end())
            found.push_back ({ match->id, parameter });
    }

    return found;
}

} // namespace

HostedModule::HostedModule (const std::string& path)
{
    const auto file = fileAt (path);

    if (! file.exists())
        throw Failure ("cannot find the module '" + path + "'");

    juce::OwnedArray<juce::PluginDescription> descriptions;
    format.findAllTypesForFile (descriptions, file.getFullPathName());

    if (! descriptions.isEmpty())
    {
        pluginDescription = *descriptions.getFirst();
        pluginInstance = format.createInstanceFromDescription (pluginDescription, 48000.0, 512);
    }

    if (pluginInstance == nullptr)
        throw Failure ("cannot load '" + path + "' as a VST3 module");

    knownParameters = matchParameters (*pluginInstance);
}

void HostedModule::prepareStereo (double sampleRate, int maximumBlock)
{
    juce::AudioProcessor::BusesLayout stereo;
    stereo.inputBuses.add (juce::AudioChannelSet::stereo());
    stereo.outputBuses.add (juce::AudioChannelSet::stereo());

    if (pluginInstance->getBusesLayout() != stereo && ! pluginInstance->setBusesLayout (stereo))
        throw Failure (pluginDescription.name.toStdString() + " does not take stereo in and stereo out");

    pluginInstance->prepareToPlay (sampleRate, maximumBlock);
}

void HostedModule::selectProgram (int program)
{
    const auto count = pluginInstance->getNumPrograms();

    if (program < 0 || program >= count)
        throw Failure ("there is no program " + std::to_string (program) + ": the module has " +
            std::to_string (count) + ", counted from 0");

    // The wrapper ignores the number of the program that is current, and a new instance calls itself program 0 while
    // its parameters are at their defaults, which need not be that program's values: so come from another program.
    if (program == pluginInstance->getCurrentProgram() && count > 1)
    {
        pluginInstance->setCurrentProgram (program == 0 ? 1 : 0);
        deliverChanges();
    }

    // On the message thread this reaches the plug-in's edit controller, and so its processor, before it returns. The
    // plug-in then reports its parameters' new values, which wait here for the next process call: they must not meet
    // those that are set next.
    pluginInstance->setCurrentProgram (program);
    deliverChanges();
}

// The framework's host keeps the states of component and controller as base64 text in its own XML.
void HostedModule::restoreState (const juce::MemoryBlock& componentState)
{
    juce::XmlElement both ("VST3PluginState");
    both.createNewChildElement ("IComponent")->addTextElement (componentState.toBase64Encoding());
    juce::MemoryBlock wrapped;
    juce::AudioProcessor::copyXmlToBinary (both, wrapped);
    pluginInstance->setStateInformation (wrapped.getData(), static_cast<int> (wrapped.getSize()));
    deliverChanges();
}

juce::MemoryBlock HostedModule::saveState()
{
    juce::MemoryBlock wrapped, componentState;
    pluginInstance->getStateInformation (wrapped);
    const auto both = juce::AudioProcessor::getXmlFromBinary (wrapped.getData(), static_cast<int> (wrapped.getSize()));
    const auto* component = both == nullptr ? nullptr : both->getChildByName ("IComponent");

    if (component == nullptr || ! componentState.fromBase64Encoding (component->getAllSubText()))
        throw Failure (pluginDescription.name.toStdString() + " gave no state");

    return componentState;
}

void HostedModule::set (const Assignment& assignment)
{
    find (assignment.id).hosted->setValue (assignment.value);
    deliverChanges();
}

void HostedModule::process (juce::AudioBuffer<float>& buffer)
{
    pluginInstance->processBlock (buffer, noMidi);
    noMidi.clear();
}

const HostedModule::Parameter& HostedModule::find (const std::string& id) const
{
    const auto hasThisId = [&] (const Parameter& parameter) { return parameter.id == id; };
    const auto match = std::find_if (knownParameters.begin(), knownParameters.end(), hasThisId);

    if (match == knownParameters.end())
        throw Failure ("the module has no parameter '" + id + "'");

    return *match;
}

/** Queued values go out with a process call, sorted by index, whatever order they were set in; a plug-in that links
    parameters would then follow the wrong one. A call of no samples sends what is queued now, and nothing else. */
void HostedModule::deliverChanges()
{
    juce::AudioBuffer<float> nothing (2, 0);
    process (nothing);
}

} // namespace kestreleq::host
