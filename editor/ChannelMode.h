#pragma once

#include "engine/dsp/Dimensions.h"

#include <juce_graphics/juce_graphics.h>

#include <array>

namespace kestreleq
{

/** How the editor shows what the two lanes carry at the moment. */
struct ChannelMode
{
    struct Lane
    {
        juce::String caption;
        juce::Colour colour;      // of caption, power button and curve
        juce::Colour meterColour; // of the output's bars
    };

    bool linked = true;
    bool midSide = false;

    bool operator== (const ChannelMode&) const = default;

    /** Lane B's look while linked is its last one; it is not shown then. */
    Lane lookOf (std::size_t lane) const;

    /** The bars' colours in the footer's output meters. */
    std::array<juce::Colour, numLanes> outputColours() const;

    /** The colour of everything that shows an input. */
    static juce::Colour neutral();
};

} // namespace kestreleq
