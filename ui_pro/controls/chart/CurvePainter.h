#pragma once

#include <juce_graphics/juce_graphics.h>

#include <span>
#include <vector>

namespace quillon::ui_pro::controls
{

using CurvePoints = std::span<const juce::Point<float>>;

/** Fills between a curve, whose points run from left to right, and a horizontal baseline: a vertical gradient of the
    colour from faint at the area's bottom to less faint at its top. */
void fillCurve (
    juce::Graphics& g, CurvePoints points, float baseline, juce::Rectangle<float> area, juce::Colour colour);

/** Leaves out the points, which run from left to right, that the line between those kept passes within this distance.
 */
std::vector<juce::Point<float>> thinCurve (CurvePoints points, float tolerance);

/** The outline of a curve of many short pieces, with bevelled joints and square ends: filled it is a line of this
   width, made in a fraction of the time that the framework's general stroke takes. */
juce::Path outlineCurve (CurvePoints points, float width);

/** Strokes a curve of many short pieces with such an outline. */
void strokeCurve (juce::Graphics& g, CurvePoints points, float width, juce::Colour colour);

} // namespace quillon::ui_pro::controls
