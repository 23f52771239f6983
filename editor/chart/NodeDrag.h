#pragma once

#include "engine/KestrelProcessor.h"

#include <juce_graphics/juce_graphics.h>

#include <array>

namespace kestreleq
{

/** One drag of a chart node, from its first movement to its release: one gesture on the node's parameters and one step
    of the undo history, "Move chart node". Message thread. */
class NodeDrag
{
public:
    /** Begins the step and the gestures. The plot's height in pixels stands for a value's whole range, and an octave of
        its frequency axis for one step of the air frequency. */
    NodeDrag (KestrelProcessor& processor, std::size_t lane, std::size_t node, float plotHeight, float octaveWidth);
    ~NodeDrag();

    NodeDrag (const NodeDrag&) = delete;
    NodeDrag& operator= (const NodeDrag&) = delete;

    /** Takes the pointer's whole way since the drag began, in pixels. */
    void moveBy (juce::Point<float> distance);

    /** Sets the node's parameters to their defaults, as one step. */
    static void reset (KestrelProcessor& processor, std::size_t lane, std::size_t node);

private:
    /** The amount first; the air node has its frequency too. */
    using Parameters = std::array<juce::RangedAudioParameter*, 2>;

    static Parameters parametersOf (KestrelProcessor& processor, std::size_t lane, std::size_t node);
    static void set (juce::RangedAudioParameter* parameter, float value);

    KestrelProcessor& owner;
    Parameters parameters;
    std::array<float, 2> startValues {};
    float height;
    float octave;
};

} // namespace kestreleq
