#pragma once

#include "engine/KestrelProcessor.h"

#include <array>
#include <optional>

namespace kestreleq
{

// What is done to a chart node: each is one step of the undo history, "Move chart node". Message thread.

inline constexpr auto nodeStepName = "Move chart node";
inline constexpr float nodeAirSteps = 4.0f; // from the lowest frequency to the highest

/** The amount first; the air node has its frequency too, the others null. */
using NodeParameters = std::array<juce::RangedAudioParameter*, 2>;

NodeParameters parametersOf (KestrelProcessor& processor, std::size_t lane, std::size_t node);

/** One gesture and one step, from construction to destruction, for as many movements as come meanwhile. */
class NodeGesture
{
public:
    /** Parameters that are null are not moved. */
    NodeGesture (KestrelProcessor& processor, const NodeParameters& parametersToMove);
    ~NodeGesture();

    NodeGesture (const NodeGesture&) = delete;
    NodeGesture& operator= (const NodeGesture&) = delete;

    /** Sets one of the parameters, 0 or 1, within its range. */
    void set (std::size_t index, float value);

private:
    KestrelProcessor& owner;
    const NodeParameters parameters;
    std::array<std::optional<ParameterTree::Gesture>, 2> gestures;
};

/** Sets the node's parameters to their defaults. */
void resetNode (KestrelProcessor& processor, std::size_t lane, std::size_t node);

/** Takes a value as it is written: a number, for a band with dB or without; for the air also a frequency, as "20K" or
    "10 kHz", which any number above 1 is taken for. False for anything else, which changes nothing. */
bool typeNode (KestrelProcessor& processor, std::size_t lane, std::size_t node, const juce::String& text);

} // namespace kestreleq
