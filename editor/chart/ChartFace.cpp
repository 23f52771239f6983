#include "editor/chart/ChartFace.h"

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

const juce::Colour zeroLine { 0x14ffffff };
const juce::Colour otherLine { 0x08ffffff };

juce::String frequencyText (double frequency)
{
    return frequency < 1000.0 ? juce::String (juce::roundToInt (frequency))
                              : juce::String (frequency / 1000.0).trimCharactersAtEnd (".") + "k";
}

juce::String levelText (int level)
{
    return level > 0 ? "+" + juce::String (level) : juce::String (level);
}

} // namespace

void paintChartBackground (juce::Graphics& g, juce::Rectangle<int> bounds, const ChartScale& scale)
{
    const auto& palette = style::Theme::palette();
    const auto r = bounds.toFloat();
    primitives::fillPanel (g, r, palette.surface3, cornerRadius);
    primitives::drawInnerShadow (g, r, cornerRadius, 0.35f);
    g.setColour (palette.outline);
    g.drawRoundedRectangle (r.reduced (0.5f), cornerRadius, 1.0f);

    g.setFont (style::regularFont (labelSize));
    g.setColour (palette.textSecondary);
    const auto plot = scale.plot();

    for (const auto level : gridLevels)
        g.drawText (levelText (level),
            juce::Rectangle<float> (0.0f, scale.yFor (level) - 7.0f, plot.getX() - 4.0f, 14.0f),
            juce::Justification::centredRight, false);

    for (const auto frequency : gridFrequencies)
    {
        const auto centre = scale.xFor (frequency);
        const auto left = std::clamp (centre - 20.0f, plot.getX() - 4.0f, plot.getRight() - 40.0f);
        const auto justification = centre - 20.0f < left ? juce::Justification::centredLeft
            : centre - 20.0f > left                      ? juce::Justification::centredRight
                                                         : juce::Justification::centred;
        g.drawText (frequencyText (frequency), juce::Rectangle<float> (left, plot.getBottom() + 1.0f, 40.0f, 13.0f),
            justification, false);
    }
}

void paintChartGrid (juce::Graphics& g, const ChartScale& scale)
{
    const auto plot = scale.plot();

    for (const auto level : gridLevels)
    {
        g.setColour (level == 0 ? zeroLine : otherLine);
        g.fillRect (juce::Rectangle<float> (plot.getX(), std::round (scale.yFor (level)), plot.getWidth(), 1.0f));
    }

    g.setColour (otherLine);

    for (const auto frequency : gridFrequencies)
        g.fillRect (juce::Rectangle<float> (std::min (std::round (scale.xFor (frequency)), plot.getRight() - 1.0f),
            plot.getY(), 1.0f, plot.getHeight()));
}

void paintChartCurve (
    juce::Graphics& g, const ChartScale& scale, const juce::Path& line, const juce::Path& fill, juce::Colour colour)
{
    const auto plot = scale.plot();
    auto gradient = juce::ColourGradient::vertical (
        colour.withAlpha (0.26f), plot.getY(), colour.withAlpha (0.26f), plot.getBottom());
    gradient.addColour (0.5, colour.withAlpha (0.03f));
    g.setGradientFill (gradient);
    g.fillPath (fill);

    g.setColour (colour);
    g.fillPath (line);
}

void paintChartNode (juce::Graphics& g, juce::Point<float> centre, float radius, juce::Colour colour, NodeState state)
{
    const auto disc = [&] (float r) { return juce::Rectangle<float> (2.0f * r, 2.0f * r).withCentre (centre); };

    if (state != NodeState::idle)
    {
        g.setColour (colour.withAlpha (state == NodeState::dragged ? 0.45f : 0.25f));
        g.fillEllipse (disc (radius + 5.0f));
    }

    g.setColour (style::Theme::palette().surface3);
    g.fillEllipse (disc (radius + 1.0f));
    g.setColour (colour);
    g.fillEllipse (disc (radius - 0.5f));
    g.setColour (style::Theme::palette().surface3.withAlpha (0.75f));
    g.fillEllipse (disc (state == NodeState::dragged ? radius * 0.25f : radius * 0.45f));
}

void paintChartReadout (juce::Graphics& g, const ChartScale& scale, juce::Point<float> node, const juce::String& name,
    const juce::String& value, juce::Colour colour)
{
    const auto nameFont = style::boldFont (11.5f);
    const auto valueFont = style::regularFont (12.0f);
    const auto nameWidth = juce::GlyphArrangement::getStringWidth (nameFont, name);
    const auto valueWidth = juce::GlyphArrangement::getStringWidth (valueFont, value);
    constexpr auto padding = 8.0f;
    constexpr auto gap = 8.0f;

    juce::Rectangle<float> box (nameWidth + valueWidth + gap + 2.0f * padding, 24.0f);
    box.setCentre (node.translated (0.0f, -26.0f));

    if (box.getY() < scale.plot().getY())
        box.setCentre (node.translated (0.0f, 26.0f));

    box = box.constrainedWithin (scale.plot());

    const auto& palette = style::Theme::palette();
    primitives::fillPanel (g, box, palette.scrim2, 5.0f);
    g.setColour (palette.outlineStrong);
    g.drawRoundedRectangle (box.reduced (0.5f), 5.0f, 1.0f);

    g.setColour (colour);
    g.setFont (nameFont);
    g.drawText (name, box.reduced (padding, 0.0f), juce::Justification::centredLeft, false);
    g.setColour (palette.textPrimary);
    g.setFont (valueFont);
    g.drawText (value, box.reduced (padding, 0.0f), juce::Justification::centredRight, false);
}

} // namespace kestreleq
