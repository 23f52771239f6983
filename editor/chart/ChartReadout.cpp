#include "editor/chart/ChartReadout.h"

#include "editor/chart/ResponsePath.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr float textSize = 11.5f;
constexpr float padding = 0.7f;   // of the text's size, round the words and between them
constexpr float rowHeight = 1.9f; // of the text's size
constexpr float clearance = 4.0f; // pixels between the box and the curve
constexpr float edgeGap = 4.0f;   // between the box and the plot's edge

juce::Font fontOf (const ChartReadout::Word& word, float size)
{
    return word.bold ? style::boldFont (size) : style::regularFont (size);
}

float widthOf (const ChartReadout::Word& word, float size)
{
    return std::ceil (juce::GlyphArrangement::getStringWidth (fontOf (word, size), word.text)) + 1.0f;
}

/** How far the curve stays away from a box; negative where it runs through. */
float distanceToCurve (const controls::ChartAxes& axes, std::span<const double> curve, juce::Rectangle<float> box)
{
    constexpr auto samples = 24;
    auto highest = axes.plot.getBottom();
    auto lowest = axes.plot.getY();

    for (int i = 0; i <= samples; ++i)
    {
        const auto x = box.getX() + box.getWidth() * static_cast<float> (i) / samples;
        const auto y = axes.yFor (levelAt (axes, curve, x));
        highest = std::min (highest, y);
        lowest = std::max (lowest, y);
    }

    return std::max (highest - box.getBottom(), box.getY() - lowest);
}

} // namespace

juce::Rectangle<float> placeReadout (const controls::ChartAxes& axes, std::span<const double> curve,
    const ChartReadout& readout, juce::Point<float> size)
{
    const auto inside = axes.plot.reduced (edgeGap);
    const auto boxAt = [&] (float centreY) {
        return juce::Rectangle<float> (size.x, size.y)
            .withCentre ({ readout.at.x, centreY })
            .constrainedWithin (inside);
    };
    const auto reach = readout.distance + 0.5f * size.y;
    auto best = boxAt (inside.getY());
    auto bestDistance = -1.0e9f;
    const auto consider = [&] (juce::Rectangle<float> box)
    {
        const auto distance = std::min (distanceToCurve (axes, curve, box), clearance);

        if (distance > bestDistance)
        {
            best = box;
            bestDistance = distance;
        }
    };

    // As near as the curve leaves room, where it is steep a little farther; else at an edge.
    if (readout.distance > 0.0f)
        for (const auto farther : { 0.0f, 0.5f, 1.0f, 1.5f })
            for (const auto side : { -1.0f, 1.0f })
                consider (boxAt (readout.at.y + side * (reach + farther * size.y)));

    consider (boxAt (inside.getBottom()));
    consider (boxAt (inside.getY()));
    return best;
}

juce::Rectangle<float> layOutReadout (const controls::ChartAxes& axes, std::span<const double> curve,
    const ChartReadout& readout, const primitives::PixelGrid& pixels)
{
    const auto size = pixels.legible (textSize);
    auto width = padding * size;

    for (const auto& word : readout.words)
        width += widthOf (word, size) + padding * size;

    return pixels.snap (placeReadout (axes, curve, readout, { width, rowHeight * size }));
}

void paintChartReadout (
    juce::Graphics& g, juce::Rectangle<float> box, const ChartReadout& readout, const primitives::PixelGrid& pixels)
{
    const auto size = pixels.legible (textSize);
    const auto& palette = style::Theme::palette();
    const auto line = pixels.wholePixels (1.0f);
    primitives::fillPanel (g, box, palette.scrim2, 5.0f);
    g.setColour (palette.outlineStrong);
    g.drawRoundedRectangle (box.reduced (0.5f * line), 5.0f, line);
    box.removeFromLeft (padding * size);

    for (const auto& word : readout.words)
    {
        g.setFont (fontOf (word, size));
        g.setColour (word.colour);
        g.drawText (word.text, box.removeFromLeft (widthOf (word, size)), juce::Justification::centredLeft, false);
        box.removeFromLeft (padding * size);
    }
}

juce::String ChartReadout::getText() const
{
    juce::StringArray texts;

    for (const auto& word : words)
        texts.add (word.text);

    return texts.joinIntoString (" ");
}

juce::String describeFrequency (double hz)
{
    if (hz < 999.5)
        return juce::String (juce::roundToInt (hz)) + " Hz";

    return juce::String (hz / 1000.0, hz < 9995.0 ? 2 : 1) + " kHz";
}

juce::String describeLevel (double db)
{
    const auto tenths = std::round (db * 10.0) / 10.0;
    return (tenths > 0.0 ? "+" : "") + juce::String (tenths == 0.0 ? 0.0 : tenths, 1, false) + " dB";
}

} // namespace kestreleq
