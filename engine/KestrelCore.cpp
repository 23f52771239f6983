#include "engine/KestrelCore.h"

#include <algorithm>

namespace kestreleq
{
namespace
{

/** The values of a whole tree; what it lacks has its default. */
std::array<float, numParameters> valuesIn (const juce::ValueTree& state)
{
    std::array<float, numParameters> result;
    std::transform (parameterTable.begin(), parameterTable.end(), result.begin(),
        [&] (const auto& info) -> float
        {
            return state.getChildWithProperty (tree_names::id, info.id)
                .getProperty (tree_names::value, static_cast<double> (info.defaultValue));
        });
    return result;
}

constexpr double riderTarget = -18.0; // dB
constexpr double riderRate = 6.0;     // dB per second

constexpr std::size_t inputSlot = 0;
constexpr std::size_t outputSlot = 1;
constexpr std::size_t spectrumFrame = 4096;
constexpr std::size_t spectrumHop = 1024;
constexpr std::size_t spectrumPoints = 512;

} // namespace

KestrelCore::KestrelCore (juce::AudioProcessor& processor, const dsp::simd::Kernels& kernels)
    : tree (processor, undoManager),
      values (tree.getValues()),
      engine (kernels),
      inputRider (kernels),
      outputRider (kernels),
      links (tree),
      history (tree, undoManager, links)
{
}

juce::ValueTree KestrelCore::copyState()
{
    const juce::ScopedLock lock (history.getLock());
    history.flush();
    return tree.copyState();
}

void KestrelCore::replaceState (const juce::ValueTree& newState)
{
    const ParameterLinks::ScopedPause restoring (links);
    const juce::ScopedLock lock (history.getLock());
    tree.replaceState (newState.createCopy());
    links.forgetUnannounced(); // a host that restores reads every value
    setWhatDiffers (valuesIn (newState));
}

void KestrelCore::bringBack (const juce::ValueTree& state)
{
    const ParameterLinks::ScopedPause restoring (links);
    setWhatDiffers (valuesIn (state));
    history.flush();
}

void KestrelCore::setWhatDiffers (const std::array<float, numParameters>& newValues)
{
    for (std::size_t i = 0; i < numParameters; ++i)
        if (! tree.holds (static_cast<Parameter> (i), newValues[i]))
            tree.setExactly (static_cast<Parameter> (i), newValues[i]);
}

void KestrelCore::applyState (const juce::ValueTree& state, const juce::String& operationName)
{
    const ParameterLinks::ScopedPause restoring (links);
    setAllParameters (valuesIn (state), operationName);
}

void KestrelCore::setAllParameters (
    const std::array<float, numParameters>& newValues, const juce::String& operationName)
{
    history.perform (operationName,
        [&]
        {
            for (std::size_t i = 0; i < numParameters; ++i)
            {
                const auto parameter = static_cast<Parameter> (i);
                const ParameterTree::Gesture gesture (tree, tree[parameter]);
                tree.setExactly (parameter, newValues[i]);
            }
        });
}

void KestrelCore::prepare (double sampleRate, int blockSize)
{
    engine.prepare (sampleRate);

    for (auto* rider : { &inputRider, &outputRider })
    {
        rider->prepare (sampleRate, static_cast<int> (numLanes));
        rider->setTarget (riderTarget);
        rider->setRate (riderRate);
    }

    for (auto& analyser : analysers)
    {
        analyser.prepare (sampleRate, spectrumFrame, spectrumHop, spectrumPoints);
        analyser.setOn (false); // until an editor asks
    }

    monoScratch.resize (static_cast<std::size_t> (blockSize));
    mixScratch.resize (static_cast<std::size_t> (blockSize));
    resetWanted = false;
    prepared = true;
}

void KestrelCore::setCapturing (bool shouldCapture)
{
    for (auto& analyser : analysers)
        analyser.setOn (shouldCapture);
}

void KestrelCore::readParameters()
{
    parameters.bypass = values.isOn (Parameter::bypass);
    parameters.link = values.isOn (Parameter::link);
    parameters.midSide = values.isOn (Parameter::msMode);
    parameters.breakMode = values.isOn (Parameter::breakMode);
    parameters.trim = values[Parameter::trim];
    inputAutoGain = values.isOn (Parameter::inAutoGain);
    outputAutoGain = values.isOn (Parameter::outAutoGain);

    for (std::size_t i = 0; i < numLanes; ++i)
    {
        const auto source = parameters.link ? 0 : i;
        auto& lane = parameters.lanes[i];

        for (std::size_t band = 0; band < numBands; ++band)
            lane.bands[band] = values[bandParameter (source, band)];

        lane.airAmount = values[onLane (Parameter::airGain, source)];
        lane.airStep = values[onLane (Parameter::airBand, source)];
        lane.bypass = values.isOn (source == 0 ? Parameter::laneABypass : Parameter::laneBBypass);

        // A rider takes the place of its stage, whose gains then stay at what they last were.
        if (! inputAutoGain)
            lane.inputGain =
                values[source == 0 || values.isOn (Parameter::inGainLink) ? Parameter::inGain1 : Parameter::inGain2];

        if (! outputAutoGain)
            lane.outputGain =
                values[source == 0 || values.isOn (Parameter::outGainLink) ? Parameter::outGain1 : Parameter::outGain2];
    }
}

void KestrelCore::process (juce::AudioBuffer<float>& buffer)
{
    const auto numChannels = buffer.getNumChannels();
    const auto numSamples = buffer.getNumSamples();

    if (numChannels == 0 || numSamples == 0)
        return;

    if (! prepared)
    {
        buffer.clear();
        return;
    }

    if (resetWanted.load (std::memory_order_relaxed) && resetWanted.exchange (false))
    {
        engine.reset();
        inputRider.reset();
        outputRider.reset();
    }

    readParameters();
    engine.setParameters (parameters);

    auto* const left = buffer.getWritePointer (0);

    if (numChannels > 1)
    {
        processStereo (left, buffer.getWritePointer (1), numSamples);
        return;
    }

    const auto length = std::min (numSamples, static_cast<int> (monoScratch.size()));
    std::fill (left + length, left + numSamples, 0.0f);
    std::copy (left, left + length, monoScratch.begin());
    processStereo (left, monoScratch.data(), length);
}

void KestrelCore::processStereo (float* left, float* right, int numSamples)
{
    float* const channels[] = { left, right };
    const bool anyBypass = parameters.bypass || parameters.lanes[0].bypass || parameters.lanes[1].bypass;
    const auto ride = [&] (dsp::GainRider& rider, bool active)
    {
        if (active && ! anyBypass)
            rider.process (channels, numSamples);
        else
            rider.release (channels, numSamples);
    };

    feedAnalysers (inputSlot, left, right, numSamples);
    ride (inputRider, inputAutoGain);
    engine.process (left, right, numSamples);
    ride (outputRider, outputAutoGain);
    feedAnalysers (outputSlot, left, right, numSamples);
}

void KestrelCore::feedAnalysers (std::size_t slot, const float* left, const float* right, int numSamples)
{
    if (parameters.link)
    {
        pushMix (0, slot, left, right, 1.0f, numSamples);
    }
    else if (parameters.midSide)
    {
        pushMix (0, slot, left, right, 1.0f, numSamples);
        pushMix (1, slot, left, right, -1.0f, numSamples);
    }
    else
    {
        analysers[0].push (slot, left, numSamples);
        analysers[1].push (slot, right, numSamples);
    }
}

/** Pushes (left + sign * right) / 2, in pieces where the block is longer than was prepared for. */
void KestrelCore::pushMix (
    std::size_t lane, std::size_t slot, const float* left, const float* right, float sign, int numSamples)
{
    if (! analysers[lane].isOn())
        return;

    const auto pieceSize = static_cast<int> (mixScratch.size());

    for (int start = 0; start < numSamples; start += pieceSize)
    {
        const auto length = std::min (pieceSize, numSamples - start);

        for (int n = 0; n < length; ++n)
            mixScratch[static_cast<std::size_t> (n)] = (left[start + n] + sign * right[start + n]) * 0.5f;

        analysers[lane].push (slot, mixScratch.data(), length);
    }
}

} // namespace kestreleq
