#include "ui_pro/controls/chart/ChartGrid.h"

#include "ui_pro/style/Fonts.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float rowHeight = 12.0f;
constexpr float labelWidth = 40.0f;
constexpr float labelGap = 4.0f;
constexpr float leastLabelPitch = 18.0f; // pixels between labelled level lines
constexpr float leastLabelRun = 34.0f;   // pixels between labelled frequency lines
constexpr float lastLabelRun = 60.0f;    // the same before the last, whose label stands on its other side

juce::String frequencyText (double hz)
{
    const auto thousands = juce::roundToInt (hz / 100.0);
    return hz < 1000.0 ? juce::String (juce::roundToInt (hz))
                       : juce::String (thousands / 10) +
            (thousands % 10 != 0 ? "." + juce::String (thousands % 10) : juce::String()) + "k";
}

juce::String levelText (int db)
{
    return (db > 0 ? "+" : "") + juce::String (db);
}

/** The whole pixel that a line takes. */
float pixelFor (float position, const ChartGrid& grid)
{
    return grid.labels == ChartGrid::Labels::outside ? std::round (position) : std::floor (position);
}

void paintLevelsInside (juce::Graphics& g, const ChartGrid& grid)
{
    const auto plot = grid.axes.plot;
    auto lastLabelled = plot.getY() - leastLabelPitch;

    for (const auto db : grid.levels)
    {
        // Above its line; the lowest row belongs to the frequencies.
        const auto y = grid.axes.yFor (db);
        const auto label = juce::Rectangle<float> (plot.getX() + labelGap, y - rowHeight, labelWidth, rowHeight);

        if (y - lastLabelled < leastLabelPitch || label.getY() < plot.getY() ||
            label.getBottom() > plot.getBottom() - rowHeight - 2.0f)
            continue;

        lastLabelled = y;
        g.drawText (levelText (db), label, juce::Justification::centredLeft, false);
    }
}

void paintFrequenciesInside (juce::Graphics& g, const ChartGrid& grid)
{
    const auto plot = grid.axes.plot;
    const auto row = plot.withTop (plot.getBottom() - rowHeight - 2.0f).withHeight (rowHeight);
    auto lastLabelled = plot.getX() - leastLabelRun;

    for (const auto hz : grid.frequencies)
    {
        // Beside its line, on the side that lies within the chart.
        const auto x = grid.axes.xFor (hz);
        const auto isLast = hz == grid.frequencies.back();

        if (! isLast && (x - lastLabelled < leastLabelRun || plot.getRight() - x < lastLabelRun))
            continue;

        lastLabelled = x;
        g.drawText (frequencyText (hz),
            row.withWidth (labelWidth).withX (isLast ? x - labelGap - labelWidth : x + labelGap),
            isLast ? juce::Justification::centredRight : juce::Justification::centredLeft, false);
    }
}

void paintOutside (juce::Graphics& g, const ChartGrid& grid)
{
    const auto plot = grid.axes.plot;
    const auto right = plot.getX() - labelGap;

    for (const auto db : grid.levels)
        g.drawText (levelText (db),
            juce::Rectangle<float> (right - labelWidth, grid.axes.yFor (db) - 7.0f, labelWidth, 14.0f),
            juce::Justification::centredRight, false);

    for (const auto hz : grid.frequencies)
    {
        const auto wanted = grid.axes.xFor (hz) - 0.5f * labelWidth;
        const auto left = std::clamp (wanted, right, plot.getRight() - labelWidth);
        g.drawText (frequencyText (hz), juce::Rectangle<float> (left, plot.getBottom() + 1.0f, labelWidth, 13.0f),
            wanted < left       ? juce::Justification::centredLeft
                : wanted > left ? juce::Justification::centredRight
                                : juce::Justification::centred,
            false);
    }
}

} // namespace

void paintGridLines (juce::Graphics& g, const ChartGrid& grid)
{
    const auto plot = grid.axes.plot;
    for (const auto db : grid.levels)
    {
        g.setColour (db == 0 ? grid.zeroLine : grid.levelLine);
        g.fillRect (plot.getX(), std::min (pixelFor (grid.axes.yFor (db), grid), plot.getBottom() - 1.0f),
            plot.getWidth(), 1.0f);
    }

    g.setColour (grid.frequencyLine);

    for (const auto hz : grid.frequencies)
        g.fillRect (std::min (pixelFor (grid.axes.xFor (hz), grid), plot.getRight() - 1.0f), plot.getY(), 1.0f,
            plot.getHeight());
}

void paintGridLabels (juce::Graphics& g, const ChartGrid& grid)
{
    g.setFont (style::regularFont (grid.textSize));
    g.setColour (grid.text);

    if (grid.labels == ChartGrid::Labels::outside)
        return paintOutside (g, grid);

    paintFrequenciesInside (g, grid);
    paintLevelsInside (g, grid);
}

} // namespace quillon::ui_pro::controls
