#pragma once

#include "engine/parameters/ParameterLayout.h"
#include "engine/parameters/ParameterValues.h"
#include "engine/parameters/TreeNames.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <array>
#include <optional>

namespace kestreleq
{

/** The framework's parameter tree, with every row of parameterTable in it, answering by Parameter: what it has by name
   is looked up once. Its flush is left to EditHistory.

    The framework writes changed parameters into the tree, and with that into the undo history, from a timer of its own:
    late, and whoever made the change, host automation too. Here that timer does not run. */
class ParameterTree final : public juce::AudioProcessorValueTreeState, private juce::AudioProcessorParameter::Listener
{
public:
    using Parameter = kestreleq::Parameter; // the base class has one too

    /** Adds the parameters to the processor. */
    ParameterTree (juce::AudioProcessor& processorToUse, juce::UndoManager& history)
        : AudioProcessorValueTreeState (processorToUse, &history, tree_names::parameters, createParameterLayout()),
          values (*this)
    {
        for (std::size_t i = 0; i < numParameters; ++i)
        {
            parameters[i] = getParameter (parameterTable[i].id);
            parameters[i]->addListener (this);
        }

        using FrameworksTimer = juce::Timer*; // the base class is one, though not in public
        FrameworksTimer (this)->stopTimer();
    }

    ~ParameterTree() override
    {
        for (auto* parameter : parameters)
            parameter->removeListener (this);
    }

    /** A gesture on one parameter from construction to destruction, or a part of the one that is open already: to a
        host a gesture within another of the same parameter is an error, and its end the end of both. Any thread. */
    class Gesture
    {
    public:
        Gesture (ParameterTree& tree, juce::AudioProcessorParameter& parameterToChange)
            : parameter (tree.isInGesture[static_cast<std::size_t> (parameterToChange.getParameterIndex())]
                      ? nullptr
                      : &parameterToChange)
        {
            if (parameter != nullptr)
                parameter->beginChangeGesture();
        }

        ~Gesture()
        {
            if (parameter != nullptr)
                parameter->endChangeGesture();
        }

        Gesture (const Gesture&) = delete;
        Gesture& operator= (const Gesture&) = delete;

    private:
        juce::AudioProcessorParameter* const parameter; // null within an open gesture
    };

    juce::RangedAudioParameter& operator[] (Parameter parameter) const { return *parameters[indexOf (parameter)]; }

    /** What the audio thread reads. */
    const ParameterValues& getValues() const { return values; }

    /** Whether both the parameter and what the audio thread reads of it are this value, to the last bit. */
    bool holds (Parameter parameter, float value) const
    {
        return (*this)[parameter].getValue() == value && values[parameter] == value;
    }

    /** Sets a parameter and tells the host and all who listen. The framework alone would not pass on to the audio
       thread what changes a value's last bit only. */
    void setExactly (Parameter parameter, float value)
    {
        (*this)[parameter].setValueNotifyingHost (value);
        values.set (parameter, (*this)[parameter].getValue());
    }

    /** Writes a value into the tree without telling the parameter, which may have moved on meanwhile. Under
        EditHistory's lock, as is read. */
    void write (const juce::String& id, float value, juce::UndoManager* history)
    {
        using StateListener = juce::ValueTree::Listener*; // the base class is one, though not in public
        state.getChildWithProperty (tree_names::id, id)
            .setPropertyExcludingListener (
                StateListener (this), tree_names::value, static_cast<double> (value), history);
    }

    /** The value that the tree holds, which is the parameter's as of the last write; none after a state that has none.
     */
    std::optional<float> read (const juce::String& id) const
    {
        const auto* value = state.getChildWithProperty (tree_names::id, id).getPropertyPointer (tree_names::value);
        return value != nullptr ? std::optional<float> (*value) : std::nullopt;
    }

private:
    void timerCallback() override {}

    void parameterValueChanged (int, float) override {}

    void parameterGestureChanged (int index, bool isStarting) override
    {
        isInGesture[static_cast<std::size_t> (index)] = isStarting;
    }

    ParameterValues values;
    std::array<juce::RangedAudioParameter*, numParameters> parameters {};
    std::array<std::atomic<bool>, numParameters> isInGesture {};
};

} // namespace kestreleq
