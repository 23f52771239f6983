#pragma once

#include "engine/KestrelProcessor.h"

#include <algorithm>
#include <array>
#include <random>
#include <span>
#include <string_view>
#include <vector>

namespace kestreleq::test
{

/** Any text in the wrapper that a host hands over. */
inline juce::MemoryBlock wrapped (std::string_view text)
{
    juce::MemoryBlock block;
    juce::MemoryOutputStream out (block, false);
    out.writeInt (0x21324356);
    out.writeInt (static_cast<int> (text.size()));
    out.write (text.data(), text.size());
    out.writeByte (0);
    out.flush();
    return block;
}

/** Left and right. */
using Stereo = std::array<std::vector<float>, 2>;

/** A processor as a host holds it: prepared, set by parameter ID, fed block by block. */
struct ProcessorRig
{
    explicit ProcessorRig (
        double sampleRate = 48000.0, int blockSize = 512, const dsp::simd::Kernels& kernels = dsp::simd::bestKernels())
        : processor (nullptr, kernels)
    {
        processor.setRateAndBufferSizeDetails (sampleRate, blockSize); // as every wrapper does
        processor.prepareToPlay (sampleRate, blockSize);
    }

    juce::RangedAudioParameter& parameter (const char* id) { return *processor.getCore().getTree().getParameter (id); }

    void set (const char* id, float value) { parameter (id).setValueNotifyingHost (value); }

    float get (const char* id) { return parameter (id).getValue(); }

    /** Every value in all its bits, with the lanes apart. */
    void setRandomly (unsigned seed)
    {
        std::mt19937 random (seed);

        for (const auto* id : { "link", "inGainLink", "outGainLink" })
            set (id, 0.0f);

        for (const auto& info : parameterTable)
            if (info.text != TextKind::onOff)
                set (info.id, static_cast<float> (random()) / 4294967295.0f);
    }

    juce::MemoryBlock save()
    {
        juce::MemoryBlock state;
        processor.getStateInformation (state);
        return state;
    }

    void restore (const juce::MemoryBlock& state)
    {
        processor.setStateInformation (state.getData(), static_cast<int> (state.getSize()));
    }

    /** In place, in blocks whose sizes come from the list, over and over. */
    void process (Stereo& signal, std::span<const int> blockSizes)
    {
        const auto total = static_cast<int> (signal[0].size());
        std::size_t next = 0;

        for (int start = 0; start < total;)
        {
            const auto length = std::min (blockSizes[next++ % blockSizes.size()], total - start);
            float* channels[] = { signal[0].data() + start, signal[1].data() + start };
            juce::AudioBuffer<float> buffer (channels, 2, length);
            processor.processBlock (buffer, midi);
            start += length;
        }
    }

    void process (Stereo& signal, int blockSize = 512) { process (signal, std::span { &blockSize, 1 }); }

    KestrelProcessor processor;
    juce::MidiBuffer midi;
};

} // namespace kestreleq::test
