#pragma once

#include "engine/KestrelCore.h"
#include "engine/PluginState.h"
#include "engine/RealTime.h"
#include "engine/dsp/LevelMeasure.h"
#include "ui/strips/FooterTelemetrySource.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>

namespace kestreleq
{

/** The plug-in's audio processor: measures what goes in and out, and leaves the audio to the core. */
class KestrelProcessor final : public juce::AudioProcessor, public quillon::ui::strips::FooterTelemetrySource
{
public:
    using EditorFactory = juce::AudioProcessorEditor* (*)(KestrelProcessor&);

    /** The engine knows no editor: whoever wants one open hands over what makes it. Without, the processor has none.
        Another form of the inner loops than the best one is for benchmarks. */
    explicit KestrelProcessor (
        EditorFactory factory = nullptr, const dsp::simd::Kernels& kernelsToUse = dsp::simd::bestKernels());

    KestrelCore& getCore() { return core; }

    // What the last block measured; any thread.

    /** How many blocks with samples there were, over and over: while it stands still, so does the host's audio. */
    std::uint32_t getNumBlocks() const { return numBlocks.load (std::memory_order_relaxed); }

    /** RMS levels in dB, at least -120: of both channels with link on, else of mid and side, or of left and right. */
    std::array<float, numLanes> getInputLevels() const { return inputLevels.load(); }

    /** The output's RMS levels in dB, at least -120, of what getInputLevels tells of the input. */
    std::array<float, numLanes> getOutputLevels() const { return outputLevels.load(); }

    /** The correlation of the output's channels, -1 to 1. */
    float getCorrelation() const { return correlation.load (std::memory_order_relaxed); }

    /** The part of the available time that processing takes, 0 to 1, smoothed. */
    double getRenderLoad() const { return loadMeasurer.getLoadAsProportion(); }

    /** Render load, latency, oversampling and sample rate, for the editor's footer. Message thread. */
    quillon::ui::strips::FooterTelemetry getFooterTelemetry() const override;

    // juce::AudioProcessor

    /** Ignored unless the sample rate is finite and above 0 and the block size above 0. */
    void prepareToPlay (double sampleRate, int maximumBlockSize) override;

    void releaseResources() override {}

    /** Clears what the filters remember and whatever is under way, before the next block. Any thread. */
    void reset() override { core.reset(); }

    /** Audio thread. Stereo blocks of any length, empty ones too; of a mono block only as much as was prepared for. */
    void processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi) KESTREL_NONBLOCKING override;
    using AudioProcessor::processBlock;

    bool isBusesLayoutSupported (const BusesLayout& layouts) const override;

    juce::AudioProcessorParameter* getBypassParameter() const override { return &core.getTree()[Parameter::bypass]; }

    const juce::String getName() const override { return "Kestrel EQ"; }

    bool acceptsMidi() const override { return false; }

    bool producesMidi() const override { return false; }

    double getTailLengthSeconds() const override { return 0.5; } // the low bands ring

    int getNumPrograms() override;

    int getCurrentProgram() override { return preset.load().program; }

    /** Sets every parameter to the program's value, each as a host gesture. An unknown index is ignored. */
    void setCurrentProgram (int index) override;
    const juce::String getProgramName (int index) override;

    void changeProgramName (int, const juce::String&) override {}

    juce::AudioProcessorEditor* createEditor() override;

    bool hasEditor() const override { return createNewEditor != nullptr; }

    /** Any thread. */
    void getStateInformation (juce::MemoryBlock& destination) override;

    /** Any thread. What is no state of ours changes nothing. */
    void setStateInformation (const void* data, int size) override;

    /** Everything that a host saves, as of now. Any thread. */
    PluginState copyState() { return { core.copyState(), preset, editorScaleStep }; }

    /** Sets every parameter to a snapshot's value, and which preset that is, as one undoable step of this name; the
        editor's size stays. Message thread. */
    void applySnapshot (const PluginState& snapshot, const juce::String& stepName);

    /** Puts right, past the undo history, what a step of it has brought back but for what the host had changed. Message
        thread. */
    void bringBack (const PluginState& snapshot);

    /** Which preset sounds. Any thread. */
    CurrentPreset getPreset() const { return preset; }

    /** Advances whenever much has changed at once: a restored state, a program, a snapshot. Any thread. */
    std::uint32_t getStateChangeCounter() const { return stateChangeCounter.load (std::memory_order_acquire); }

    /** Names the next undoable step, for what is about to begin, a drag say. Any thread. */
    void setPendingTransactionName (const juce::String& name) { core.getHistory().setPendingName (name); }

    /** True until the next step has taken the pending name. Any thread. */
    bool isTransactionPending() const { return core.getHistory().hasPendingName(); }

    /** Switches the spectrum analysers on for an editor that shows them, or off, as preparing does too. Any thread but
        the audio thread. */
    void setCapturing (bool shouldCapture) { core.setCapturing (shouldCapture); }

    /** True while an editor has the analysers on. Any thread. */
    bool isCapturing() const { return core.isCapturing(); }

    /** The editor's size as a step of its own, 0 (scale 0.5) to 30 (scale 2); -1 for its default size. Saved with the
        state. Any thread. */
    int getEditorScaleStep() const { return editorScaleStep; }

    void setEditorScaleStep (int newStep) { editorScaleStep = newStep; }

private:
    /** Two floats that the audio thread writes and anyone reads. */
    struct LevelPair
    {
        std::array<std::atomic<float>, numLanes> levels { dsp::silenceLevel, dsp::silenceLevel };

        void store (const std::array<float, numLanes>& newLevels);
        std::array<float, numLanes> load() const;
    };

    void measureInput (const juce::AudioBuffer<float>& buffer, bool link, bool midSide);
    void measureOutput (const juce::AudioBuffer<float>& buffer, bool link, bool midSide);
    void registerRenderTime (juce::int64 ticks, int numSamples);
    void choosePreset (CurrentPreset newPreset);

    const dsp::simd::Kernels& kernels;
    KestrelCore core;
    const EditorFactory createNewEditor;
    std::atomic<CurrentPreset> preset {};
    std::atomic<int> editorScaleStep { -1 };
    std::atomic<std::uint32_t> stateChangeCounter { 0 };

    std::atomic<std::uint32_t> numBlocks { 0 };
    LevelPair inputLevels;
    LevelPair outputLevels;
    std::atomic<float> correlation { 0.0f };
    juce::AudioProcessLoadMeasurer loadMeasurer;
    std::atomic<int> loadMeasurerBusy { 0 };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (KestrelProcessor)
};

} // namespace kestreleq
