#pragma once

#include "editor/chart/ResponsePath.h"

#include "ui_pro/primitives/PixelGrid.h"

namespace kestreleq
{

// How a chart looks. Colours come from the theme, but for the lane's own.

/** The recess behind the plot, with the labels of both axes. Never changes for a size. */
void paintChartBackground (juce::Graphics& g, juce::Rectangle<int> bounds,
    const quillon::ui_pro::controls::ChartAxes& axes, const quillon::ui_pro::primitives::PixelGrid& pixels);

void paintChartGrid (juce::Graphics& g, const quillon::ui_pro::controls::ChartAxes& axes,
    const quillon::ui_pro::primitives::PixelGrid& pixels);

/** The response: a line with a faint fill between it and 0 dB. */
void paintChartCurve (juce::Graphics& g, const quillon::ui_pro::controls::ChartAxes& axes, const ResponsePath& response,
    juce::Colour colour);

enum class NodeState
{
    idle,
    hovered,
    dragged
};

/** Where the pointer meets the curve. */
constexpr float chartMarkRadius = 4.5f; // design pixels
void paintChartMark (juce::Graphics& g, juce::Point<float> centre, juce::Colour colour);

/** Round the node that the keyboard has reached. */
void paintNodeRing (juce::Graphics& g, juce::Point<float> centre, float radius);

/** What surrounds the node under the pointer, beyond its radius. */
constexpr float nodeHalo = 5.0f; // design pixels
void paintChartNode (juce::Graphics& g, juce::Point<float> centre, float radius, juce::Colour colour, NodeState state);

} // namespace kestreleq
