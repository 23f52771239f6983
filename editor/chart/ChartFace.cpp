#include "editor/chart/ChartFace.h"

#include "ui_pro/controls/chart/ChartGrid.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <array>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr std::array gridFrequencies { 20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2500.0, 5000.0, 10000.0, 40000.0 };
constexpr std::array gridLevels { 12, 6, 0, -6, -12 };
constexpr float labelSize = 10.5f;
constexpr float cornerRadius = 6.0f;

controls::ChartGrid makeGrid (const controls::ChartAxes& axes)
{
    return { .axes = axes,
        .frequencies = gridFrequencies,
        .levels = gridLevels,
        .zeroLine = style::Theme::get().surface.responseZeroLine,
        .levelLine = style::Theme::get().surface.responseGridLine,
        .frequencyLine = style::Theme::get().surface.responseGridLine,
        .text = style::Theme::palette().textSecondary,
        .textSize = labelSize,
        .labels = controls::ChartGrid::Labels::outside };
}

} // namespace

void paintChartBackground (juce::Graphics& g, juce::Rectangle<int> bounds, const controls::ChartAxes& axes,
    const primitives::PixelGrid& pixels)
{
    const auto& palette = style::Theme::palette();
    const auto r = bounds.toFloat();
    primitives::fillPanel (g, r, palette.surface3, cornerRadius);
    primitives::drawInnerShadow (g, r, cornerRadius, 0.35f);
    g.setColour (palette.outline);
    g.drawRoundedRectangle (r.reduced (0.5f), cornerRadius, 1.0f);

    paintGridLabels (g, makeGrid (axes), pixels);
}

void paintChartGrid (juce::Graphics& g, const controls::ChartAxes& axes, const primitives::PixelGrid& pixels)
{
    paintGridLines (g, makeGrid (axes), pixels);
}

void paintChartCurve (
    juce::Graphics& g, const controls::ChartAxes& axes, const ResponsePath& response, juce::Colour colour)
{
    const auto plot = axes.plot;
    auto gradient = juce::ColourGradient::vertical (
        colour.withAlpha (0.26f), plot.getY(), colour.withAlpha (0.26f), plot.getBottom());
    gradient.addColour (0.5, colour.withAlpha (0.03f));
    g.setGradientFill (gradient);
    g.fillPath (response.fill);

    g.setColour (colour);
    g.fillPath (response.line);
}

void paintChartMark (juce::Graphics& g, juce::Point<float> centre, juce::Colour colour)
{
    const auto disc = [&] (float r) { return juce::Rectangle<float> (2.0f * r, 2.0f * r).withCentre (centre); };
    g.setColour (style::Theme::palette().surface3);
    g.fillEllipse (disc (chartMarkRadius));
    g.setColour (colour);
    g.fillEllipse (disc (chartMarkRadius - 1.0f));
}

void paintNodeRing (juce::Graphics& g, juce::Point<float> centre, float radius)
{
    g.setColour (style::Theme::palette().textPrimary);
    g.drawEllipse (juce::Rectangle<float> (2.0f * radius + 8.0f, 2.0f * radius + 8.0f).withCentre (centre), 2.0f);
}

void paintChartNode (juce::Graphics& g, juce::Point<float> centre, float radius, juce::Colour colour, NodeState state)
{
    const auto disc = [&] (float r) { return juce::Rectangle<float> (2.0f * r, 2.0f * r).withCentre (centre); };

    if (state != NodeState::idle)
    {
        g.setColour (colour.withAlpha (state == NodeState::dragged ? 0.45f : 0.25f));
        g.fillEllipse (disc (radius + nodeHalo));
    }

    g.setColour (style::Theme::palette().surface3);
    g.fillEllipse (disc (radius + 1.0f));
    g.setColour (colour);
    g.fillEllipse (disc (radius - 0.5f));
    g.setColour (style::Theme::palette().surface3.withAlpha (0.75f));
    g.fillEllipse (disc (state == NodeState::dragged ? radius * 0.25f : radius * 0.45f));
}

} // namespace kestreleq
