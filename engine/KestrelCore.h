#pragma once

#include "engine/EditHistory.h"
#include "engine/ParameterLinks.h"
#include "engine/ParameterTree.h"
#include "engine/analysis/SpectrumAnalyser.h"
#include "engine/dsp/EqEngine.h"
#include "engine/dsp/GainRider.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <array>
#include <atomic>
#include <vector>

namespace kestreleq
{

/** The state of the plug-in and its audio path: the parameter tree with its undo history, the engine, the two gain
    riders around it, and the spectrum analysers. */
class KestrelCore
{
public:
    /** Builds the parameter tree and attaches it to the processor, which owns this object. The kernels are the form of
        the inner loops for all that runs in here. */
    KestrelCore (juce::AudioProcessor& processor, const dsp::simd::Kernels& kernels);

    /** The parameters, and the history of the edits made to them. Parameters from any thread, the rest from the message
        thread. */
    ParameterTree& getTree() { return tree; }

    const ParameterTree& getTree() const { return tree; }

    juce::UndoManager& getUndoManager() { return undoManager; }

    /** What turns edits into undoable steps. */
    EditHistory& getHistory() { return history; }

    const EditHistory& getHistory() const { return history; }

    /** The parameters' values as of now, without a lock. Any thread. */
    const ParameterValues& getValues() const { return values; }

    /** What copies a linked parameter's value to its partner. Any thread. */
    ParameterLinks& getLinks() { return links; }

    /** The spectra of lane 0 (left, mid, or the mean of both with link on) or 1 (right or side). */
    analysis::SpectrumAnalyser& getAnalyser (std::size_t lane) { return analysers[lane]; }

    /** Switches both analysers on or off. Any thread but the audio thread. */
    void setCapturing (bool shouldCapture);

    bool isCapturing() const { return analysers[0].isOn(); }

    /** A copy of the parameter tree with the values that the audio thread reads now. Any thread. */
    juce::ValueTree copyState();

    /** Takes the values of a whole tree as they are, links or not; what it lacks takes its default. Forgets the undo
        history. Any thread. */
    void replaceState (const juce::ValueTree& newState);

    /** Sets every parameter to the value that a whole tree has for it, links or not, as one named operation of the undo
        history. Message thread. */
    void applyState (const juce::ValueTree& state, const juce::String& operationName);

    /** Sets the parameters that differ from a whole tree, links or not, past the undo history. Message thread. */
    void bringBack (const juce::ValueTree& state);

    /** Sets every parameter, in host order and each as a host gesture, as one named operation of the undo history.
        Message thread. */
    void setAllParameters (const std::array<float, numParameters>& newValues, const juce::String& operationName);

    /** Sets up everything for a sample rate in Hz and a block size in samples, both above 0. Never while process runs.
        Leaves the analysers off. */
    void prepare (double sampleRate, int blockSize);

    /** Has the next block begin with cleared filters, riders at 0 dB and settings that act at once. Any thread. */
    void reset() { resetWanted = true; }

    /** Processes one block in place, of any length if stereo. Audio thread. Before prepare the block is silenced. */
    void process (juce::AudioBuffer<float>& buffer);

private:
    void setWhatDiffers (const std::array<float, numParameters>& newValues);
    void readParameters();
    void processStereo (float* left, float* right, int numSamples);
    void feedAnalysers (std::size_t slot, const float* left, const float* right, int numSamples);
    void pushMix (
        std::size_t lane, std::size_t slot, const float* left, const float* right, float sign, int numSamples);

    // In this order: what is watched and recorded outlives what watches and records.
    juce::UndoManager undoManager;
    ParameterTree tree;
    const ParameterValues& values;

    dsp::EngineParameters parameters; // those of the last block
    bool inputAutoGain = false;
    bool outputAutoGain = false;

    dsp::EqEngine engine;
    dsp::GainRider inputRider;
    dsp::GainRider outputRider;
    std::array<analysis::SpectrumAnalyser, numLanes> analysers;
    std::vector<float> monoScratch; // the second channel of a mono block
    std::vector<float> mixScratch;  // what the analysers are fed, where that is no channel
    bool prepared = false;
    std::atomic<bool> resetWanted { false };

    ParameterLinks links;
    EditHistory history;
};

} // namespace kestreleq
