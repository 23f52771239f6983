#pragma once

#include "editor/chart/NodeEdits.h"

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

    /** Takes the pointer's whole way since the drag began, in pixels. What it has gone since the last call counts a
        tenth while fine, so nothing jumps when that changes. */
    void moveBy (juce::Point<float> distance, bool fine);

private:
    NodeParameters parameters;
    NodeGesture gesture;
    std::array<float, 2> startValues {};
    float height;
    float octave;
    juce::Point<float> pointer; // as of the last call
    juce::Point<float> way;     // that counts
};

} // namespace kestreleq
