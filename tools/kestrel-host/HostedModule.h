#pragma once

#include "tools/kestrel-host/Commands.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <string>
#include <vector>

namespace kestreleq::host
{

/** A VST3 module, loaded and instantiated. Lives on the message thread, which also plays the audio thread's part, so
    that every run does the same things in the same order. No messages need to be dispatched. */
class HostedModule
{
public:
    /** A parameter of the plug-in with its own ID string, of which the module publishes only a hash. */
    struct Parameter
    {
        std::string id;
        juce::AudioProcessorParameter* hosted;
    };

    /** Loads the module's first plug-in. Throws Failure. */
    explicit HostedModule (const std::string& path);

    const juce::PluginDescription& description() const { return pluginDescription; }

    juce::AudioPluginInstance& instance() { return *pluginInstance; }

    /** The plug-in's own parameters in the host's order. What the VST3 wrapper adds is left out. */
    const std::vector<Parameter>& parameters() const { return knownParameters; }

    /** Throws Failure if the plug-in has no such parameter. */
    void requireParameter (const std::string& id) const { find (id); }

    /** Sets stereo in and stereo out and prepares. Rate in Hz, block in samples. Throws Failure. */
    void prepareStereo (double sampleRate, int maximumBlock);

    /** Restores the component's own state, after preparing. */
    void restoreState (const juce::MemoryBlock& componentState);

    /** The component's own state. Throws Failure if it has none. */
    juce::MemoryBlock saveState();

    /** Selects a factory program, counted from 0, after preparing. Throws Failure if there is none of this number. */
    void selectProgram (int program);

    /** Sets one parameter at once, after preparing. Throws Failure for an unknown ID. */
    void set (const Assignment& assignment);

    /** Processes a prepared stereo block in place. */
    void process (juce::AudioBuffer<float>& buffer);

private:
    const Parameter& find (const std::string& id) const;
    void deliverChanges();

    juce::VST3PluginFormat format;
    juce::PluginDescription pluginDescription;
    std::unique_ptr<juce::AudioPluginInstance> pluginInstance;
    std::vector<Parameter> knownParameters;
    juce::MidiBuffer noMidi;
};

} // namespace kestreleq::host
