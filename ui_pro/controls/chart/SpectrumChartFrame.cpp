#include "ui_pro/controls/chart/SpectrumChartFrame.h"

#include "ui_pro/controls/chart/SpectrumAxes.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int frequencies[] = { 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000 };
constexpr int spectrumLines[] = { 12, 0, -12, -24, -36, -48, -60, -72 };
constexpr int differenceLines[] = { 12, 6, 0, -6, -12 };
constexpr int magnitudeLines[] = { 12, 6, 0 };

constexpr float labelSize = 10.0f;
constexpr float labelHeight = 12.0f;
constexpr float labelWidth = 40.0f;
constexpr float labelGap = 4.0f;
constexpr float leastLabelPitch = 18.0f; // pixels between labelled level lines
constexpr float leastLabelRun = 34.0f;   // pixels between labelled frequency lines
constexpr float lastLabelRun = 60.0f;    // the same before the last, whose label stands on its other side
constexpr float gridAlpha = 0.35f;

constexpr float waitingSize = 13.0f;
constexpr float waitingHeight = 28.0f;

constexpr float chipSize = 10.0f;
constexpr float chipHeight = 18.0f;
constexpr float chipGap = 6.0f;
constexpr float chipInset = 8.0f;
constexpr float dotSize = 6.0f;

std::span<const int> levelLines (SpectrumChartMode mode)
{
    switch (mode)
    {
        case SpectrumChartMode::difference:
            return differenceLines;
        case SpectrumChartMode::differenceMagnitude:
            return magnitudeLines;
        case SpectrumChartMode::spectrum:
        default:
            return spectrumLines;
    }
}

juce::String frequencyText (int hz)
{
    return hz < 1000 ? juce::String (hz) : juce::String (hz / 1000) + "k";
}

juce::String levelText (int db)
{
    return (db > 0 ? "+" : "") + juce::String (db);
}

/** A line of one pixel, on whole pixels, within the area. */
void drawVertical (juce::Graphics& g, float x, juce::Rectangle<float> area)
{
    g.fillRect (std::min (std::floor (x), area.getRight() - 1.0f), area.getY(), 1.0f, area.getHeight());
}

void drawHorizontal (juce::Graphics& g, float y, juce::Rectangle<float> area)
{
    g.fillRect (area.getX(), std::min (std::floor (y), area.getBottom() - 1.0f), area.getWidth(), 1.0f);
}

void paintFrequencyLines (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartTraceConfig& config)
{
    const auto row = area.withTop (area.getBottom() - labelHeight - 2.0f).withHeight (labelHeight);

    auto lastLabelled = area.getX() - leastLabelRun;

    for (const auto hz : frequencies)
    {
        const auto x = frequencyToX (hz, area);
        g.setColour (config.gridColour.withMultipliedAlpha (gridAlpha));
        drawVertical (g, x, area);

        // Beside its line, on the side that lies within the chart.
        const auto isLast = hz == frequencies[std::size (frequencies) - 1];

        if (! isLast && (x - lastLabelled < leastLabelRun || area.getRight() - x < lastLabelRun))
            continue;

        lastLabelled = x;
        const auto label = row.withWidth (labelWidth).withX (isLast ? x - labelGap - labelWidth : x + labelGap);
        g.setColour (style::Theme::palette().textSecondary);
        g.drawText (frequencyText (hz), label,
            isLast ? juce::Justification::centredRight : juce::Justification::centredLeft, false);
    }
}

void paintLevelLines (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartTraceConfig& config)
{
    const auto range = SpectrumChartRange::of (config.getMode());
    auto lastLabelled = area.getY() - leastLabelPitch;

    for (const auto db : levelLines (config.getMode()))
    {
        const auto y = dbToY (static_cast<float> (db), area, range.minDb, range.maxDb);
        g.setColour (db == 0 ? config.zeroLineColour.withMultipliedAlpha (2.0f * gridAlpha)
                             : config.gridColour.withMultipliedAlpha (gridAlpha));
        drawHorizontal (g, y, area);

        // Above its line; the lowest row belongs to the frequencies.
        const auto label = juce::Rectangle<float> (area.getX() + labelGap, y - labelHeight, labelWidth, labelHeight);
        const auto hasRoom = y - lastLabelled >= leastLabelPitch && label.getY() >= area.getY() &&
            label.getBottom() <= area.getBottom() - labelHeight - 2.0f;

        if (! hasRoom)
            continue;

        lastLabelled = y;
        g.setColour (style::Theme::palette().textSecondary);
        g.drawText (levelText (db), label, juce::Justification::centredLeft, false);
    }
}

} // namespace

SpectrumChartRange SpectrumChartRange::of (SpectrumChartMode mode)
{
    switch (mode)
    {
        case SpectrumChartMode::difference:
            return { -18.0f, 18.0f, 0.0f };
        case SpectrumChartMode::differenceMagnitude:
            return { 0.0f, 18.0f, 0.0f };
        case SpectrumChartMode::spectrum:
        default:
            return { -84.0f, 24.0f, -84.0f };
    }
}

int getChipWidth (const juce::String& text)
{
    return std::max (7 * text.length() + 24, 48);
}

void paintChartGrid (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartTraceConfig& config)
{
    const juce::Graphics::ScopedSaveState saved (g);
    g.reduceClipRegion (area.getSmallestIntegerContainer());
    g.setColour (style::Theme::palette().surface3);
    g.fillRect (area);
    g.setFont (style::regularFont (labelSize));
    paintFrequencyLines (g, area, config);
    paintLevelLines (g, area, config);
}

void paintChartChips (juce::Graphics& g, juce::Rectangle<float> area, const std::vector<SpectrumChartChip>& chips)
{
    const auto& palette = style::Theme::palette();
    auto right = area.getRight() - chipInset;
    g.setFont (style::boldFont (chipSize));

    for (const auto& chip : chips)
    {
        const auto width = static_cast<float> (getChipWidth (chip.text));
        auto box = juce::Rectangle<float> (right - width, area.getY() + chipInset, width, chipHeight);

        if (box.getX() < area.getX() + chipInset)
            return;

        right = box.getX() - chipGap;
        g.setColour (palette.surface2);
        g.fillRoundedRectangle (box, chipHeight / 2.0f);
        g.setColour (chip.colour.withMultipliedAlpha (0.6f));
        g.drawRoundedRectangle (box.reduced (0.5f), chipHeight / 2.0f - 0.5f, 1.0f);

        box.removeFromLeft (7.0f);
        g.setColour (chip.colour);
        g.fillEllipse (box.removeFromLeft (dotSize).withSizeKeepingCentre (dotSize, dotSize));
        box.removeFromLeft (4.0f);
        g.setColour (palette.textPrimary);
        g.drawFittedText (
            chip.text, box.withTrimmedRight (4.0f).toNearestInt(), juce::Justification::centredLeft, 1, 0.7f);
    }
}

void paintWaitingForAudio (juce::Graphics& g, juce::Rectangle<float> area)
{
    g.setFont (style::boldFont (waitingSize).withExtraKerningFactor (0.08f));
    g.setColour (style::Theme::palette().textSecondary);
    g.drawText ("WAITING FOR AUDIO", area.withSizeKeepingCentre (area.getWidth(), waitingHeight),
        juce::Justification::centred, false);
}

} // namespace quillon::ui_pro::controls
