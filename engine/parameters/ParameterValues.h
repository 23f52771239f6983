#pragma once

#include "engine/parameters/ParameterTable.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <array>
#include <atomic>

namespace kestreleq
{

/** The tree's live values by parameter: looked up by name once, here, and then read on any thread without a lock. */
class ParameterValues
{
public:
    /** The tree must hold every row of parameterTable and outlive this object. */
    explicit ParameterValues (const juce::AudioProcessorValueTreeState& tree)
    {
        for (std::size_t i = 0; i < numParameters; ++i)
            values[i] = tree.getRawParameterValue (parameterTable[i].id);
    }

    /** 0 to 1. */
    float operator[] (Parameter parameter) const
    {
        return values[indexOf (parameter)]->load (std::memory_order_relaxed);
    }

    bool isOn (Parameter parameter) const { return (*this)[parameter] >= flagThreshold; }

    void set (Parameter parameter, float value) { *values[indexOf (parameter)] = value; }

private:
    std::array<std::atomic<float>*, numParameters> values;
};

} // namespace kestreleq
