#pragma once

#include "engine/ParameterLinks.h"
#include "engine/dsp/EqEngine.h"
#include "engine/dsp/GainRider.h"
#include "engine/parameters/ParameterValues.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <array>
#include <vector>

namespace kestreleq
{

/** The state of the plug-in and its audio path: the parameter tree with its undo history, the engine, and the two gain
    riders around it. */
class KestrelCore
{
public:
    /** Builds the parameter tree and attaches it to the processor, which owns this object. */
    explicit KestrelCore (juce::AudioProcessor& processor);

    juce::AudioProcessorValueTreeState& getTree() { return tree; }

    juce::UndoManager& getUndoManager() { return undoManager; }

    const ParameterValues& getValues() const { return values; }

    ParameterLinks& getLinks() { return links; }

    /** Sets every parameter, in host order and each as a host gesture, as one named operation of the undo history.
        Message thread. */
    void setAllParameters (const std::array<float, numParameters>& newValues, const juce::String& operationName);

    /** Sets up everything for a sample rate in Hz and a block size in samples, both above 0. Never while process runs.
     */
    void prepare (double sampleRate, int blockSize);

    /** Processes one block in place, of any length if stereo. Audio thread. Before prepare the block is silenced. */
    void process (juce::AudioBuffer<float>& buffer);

private:
    void readParameters();
    void processStereo (float* left, float* right, int numSamples);

    // In this order: what is watched and recorded outlives what watches and records.
    juce::UndoManager undoManager;
    juce::AudioProcessorValueTreeState tree;
    ParameterValues values;

    dsp::EngineParameters parameters; // those of the last block
    bool inputAutoGain = false;
    bool outputAutoGain = false;

    dsp::EqEngine engine;
    dsp::GainRider inputRider;
    dsp::GainRider outputRider;
    std::vector<float> monoScratch; // the second channel of a mono block
    bool prepared = false;

    ParameterLinks links;
};

} // namespace kestreleq
