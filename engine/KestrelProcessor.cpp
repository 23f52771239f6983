#include "engine/KestrelProcessor.h"

#include "engine/Contained.h"
#include "engine/parameters/FactoryPrograms.h"
#include "ui/settings/SettingsScopeManager.h"

#include <cmath>

namespace kestreleq
{
namespace
{

/** A mono block is measured as two equal channels. */
const float* secondChannel (const juce::AudioBuffer<float>& buffer)
{
    return buffer.getReadPointer (buffer.getNumChannels() > 1 ? 1 : 0);
}

} // namespace

KestrelProcessor::KestrelProcessor (EditorFactory factory, const dsp::simd::Kernels& kernelsToUse)
    : AudioProcessor (BusesProperties()
                          .withInput ("Input", juce::AudioChannelSet::stereo())
                          .withOutput ("Output", juce::AudioChannelSet::stereo())),
      kernels (kernelsToUse),
      core (*this, kernels),
      createNewEditor (factory)
{
    quillon::ui::settings::SettingsScopeManager::setContextFromAnyThread ("KestrelEQ");
}

bool KestrelProcessor::isBusesLayoutSupported (const BusesLayout& layouts) const
{
    const auto stereo = juce::AudioChannelSet::stereo();

    return layouts.inputBuses.size() == 1 && layouts.outputBuses.size() == 1 &&
        layouts.getMainInputChannelSet() == stereo && layouts.getMainOutputChannelSet() == stereo;
}

void KestrelProcessor::prepareToPlay (double sampleRate, int maximumBlockSize)
{
    if (! std::isfinite (sampleRate) || sampleRate <= 0.0 || maximumBlockSize <= 0)
        return;

    contain (
        [&]
        {
            core.prepare (sampleRate, maximumBlockSize);
            loadMeasurer.reset (sampleRate, maximumBlockSize);
        });
}

void KestrelProcessor::processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi)
{
    const juce::ScopedNoDenormals noDenormals;
    midi.clear();

    const auto start = juce::Time::getHighResolutionTicks();
    const auto& values = core.getValues();
    const bool link = values.isOn (Parameter::link);
    const bool midSide = values.isOn (Parameter::msMode);

    measureInput (buffer, link, midSide);
    core.process (buffer);
    measureOutput (buffer, link, midSide);

    registerRenderTime (juce::Time::getHighResolutionTicks() - start, buffer.getNumSamples());
}

void KestrelProcessor::measureInput (const juce::AudioBuffer<float>& buffer, bool link, bool midSide)
{
    if (buffer.getNumChannels() > 0 && buffer.getNumSamples() > 0)
        inputLevels.store (dsp::measureLevels (
            kernels, buffer.getReadPointer (0), secondChannel (buffer), buffer.getNumSamples(), link, midSide));
}

void KestrelProcessor::measureOutput (const juce::AudioBuffer<float>& buffer, bool link, bool midSide)
{
    if (buffer.getNumChannels() == 0 || buffer.getNumSamples() == 0)
        return;

    numBlocks.store (numBlocks.load (std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    const auto measured = dsp::measureOutput (
        kernels, buffer.getReadPointer (0), secondChannel (buffer), buffer.getNumSamples(), link, midSide);
    outputLevels.store (measured.levels);

    if (buffer.getNumChannels() > 1)
        correlation.store (measured.correlation, std::memory_order_relaxed);
}

void KestrelProcessor::registerRenderTime (juce::int64 ticks, int numSamples)
{
    int notBusy = 0;

    // An empty block has no time to be measured against.
    if (numSamples == 0 || ! loadMeasurerBusy.compare_exchange_strong (notBusy, 1))
        return;

    loadMeasurer.registerRenderTime (juce::Time::highResolutionTicksToSeconds (ticks) * 1000.0, numSamples);
    loadMeasurerBusy = 0;
}

void KestrelProcessor::LevelPair::store (const std::array<float, numLanes>& newLevels)
{
    for (std::size_t i = 0; i < numLanes; ++i)
        levels[i].store (newLevels[i], std::memory_order_relaxed);
}

std::array<float, numLanes> KestrelProcessor::LevelPair::load() const
{
    return { levels[0].load (std::memory_order_relaxed), levels[1].load (std::memory_order_relaxed) };
}

quillon::ui::strips::FooterTelemetry KestrelProcessor::getFooterTelemetry() const
{
    return { .cpuPercent = static_cast<float> (getRenderLoad() * 100.0),
        .latencySamples = getLatencySamples(),
        .oversamplingFactor = 1,
        .sampleRate = getSampleRate() };
}

int KestrelProcessor::getNumPrograms()
{
    return static_cast<int> (factoryPrograms.size());
}

const juce::String KestrelProcessor::getProgramName (int index)
{
    return juce::isPositiveAndBelow (index, getNumPrograms()) ? factoryPrograms[static_cast<std::size_t> (index)].name
                                                              : "";
}

void KestrelProcessor::setCurrentProgram (int index)
{
    if (! juce::isPositiveAndBelow (index, getNumPrograms()))
        return;

    contain (
        [&]
        {
            const auto stepName = "Load preset: " + getProgramName (index);
            core.getHistory().perform (stepName,
                [&]
                {
                    core.setAllParameters (valuesOf (factoryPrograms[static_cast<std::size_t> (index)]), stepName);
                    choosePreset ({ index, false });
                });
            ++stateChangeCounter;
        });
}

/** A part of the step that is being made: the preset changes with the values. */
void KestrelProcessor::choosePreset (CurrentPreset newPreset)
{
    const auto choose = [this] (CurrentPreset chosen)
    {
        return [this, chosen]
        {
            preset = chosen;

            // On any other thread it is the host that sets the program, and would read its own old values on this.
            if (juce::MessageManager::existsAndIsCurrentThread())
                updateHostDisplay (ChangeDetails {}.withProgramChanged (true));
        };
    };

    if (const auto before = preset.load(); before != newPreset)
        core.getHistory().record (choose (newPreset), choose (before));
}

void KestrelProcessor::getStateInformation (juce::MemoryBlock& destination)
{
    contain ([&] { writeState (copyState(), destination); });
}

void KestrelProcessor::setStateInformation (const void* data, int size)
{
    contain (
        [&]
        {
            const auto state = readState (data, size);

            if (! state)
                return;

            core.replaceState (state->parameters);
            preset = state->preset;
            editorScaleStep = state->editorScaleStep;
            ++stateChangeCounter;
        });
}

juce::AudioProcessorEditor* KestrelProcessor::createEditor()
{
    juce::AudioProcessorEditor* editor = nullptr;
    contain ([&] { editor = createNewEditor != nullptr ? createNewEditor (*this) : nullptr; });
    return editor; // without one the wrapper shows an empty window
}

void KestrelProcessor::bringBack (const PluginState& snapshot)
{
    core.bringBack (snapshot.parameters);
    preset = snapshot.preset;
}

void KestrelProcessor::applySnapshot (const PluginState& snapshot, const juce::String& stepName)
{
    core.getHistory().perform (stepName,
        [&]
        {
            core.applyState (snapshot.parameters, stepName);
            choosePreset (snapshot.preset);
        });
    ++stateChangeCounter;
}

} // namespace kestreleq
