#pragma once

#include "engine/parameters/TreeNames.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>

namespace kestreleq
{

/** The framework's parameter tree, with its flush handed over.

    The framework writes changed parameters into the tree, and with that into the undo history, from a timer of its own:
    late, and whoever made the change, host automation too. Here the same timer calls `onFlush` instead. */
class ParameterTree final : public juce::AudioProcessorValueTreeState
{
public:
    using AudioProcessorValueTreeState::AudioProcessorValueTreeState;

    /** Called ten times a second on the message thread. */
    std::function<void()> onFlush;

    /** Writes a value into the tree without telling the parameter, which may have moved on meanwhile. Under
        EditHistory's lock, as is read. */
    void write (const juce::String& id, float value, juce::UndoManager* history)
    {
        using StateListener = juce::ValueTree::Listener*; // the base class is one, though not in public
        state.getChildWithProperty (tree_names::id, id)
            .setPropertyExcludingListener (
                StateListener (this), tree_names::value, static_cast<double> (value), history);
    }

    /** The value that the tree holds, which is the parameter's as of the last write. */
    float read (const juce::String& id) const
    {
        return state.getChildWithProperty (tree_names::id, id)[tree_names::value];
    }

private:
    void timerCallback() override
    {
        if (onFlush != nullptr)
            onFlush();
    }
};

} // namespace kestreleq
