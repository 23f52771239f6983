#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <optional>

namespace kestreleq
{

/** Which preset is in force: a factory program, or settings from elsewhere that have come in its place ("Custom"). */
struct CurrentPreset
{
    int program = 0;
    bool isCustom = false;

    bool operator== (const CurrentPreset&) const = default;
};

/** What a saved state holds: the parameters as a tree of type "Parameters" with one child per parameter, and the two
    properties that belong to the processor. */
struct PluginState
{
    juce::ValueTree parameters;
    CurrentPreset preset;
    int editorScaleStep = -1; // -1: the editor's default size
};

/** Writes the state as a host keeps it: XML in the framework's binary wrapper. */
void writeState (const PluginState& state, juce::MemoryBlock& destination);

/** Reads what writeState wrote, this release's or an earlier one's. Nothing when the block is empty, damaged, hostile
    or not ours. Of the parameters only the known ones are taken, each as a value that it can hold. Any thread. */
std::optional<PluginState> readState (const void* data, int size);

/** Reads a state from text that a user pasted, as readState does; its root may go by the product's name too. */
std::optional<PluginState> readStateText (const juce::String& text);

} // namespace kestreleq
