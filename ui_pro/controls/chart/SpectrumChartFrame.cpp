#include "ui_pro/controls/chart/SpectrumChartFrame.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <span>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr double frequencies[] = { 20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2000.0, 5000.0, 10000.0, 20000.0 };
constexpr int spectrumLines[] = { 12, 0, -12, -24, -36, -48, -60, -72 };
constexpr int differenceLines[] = { 12, 6, 0, -6, -12 };
constexpr int magnitudeLines[] = { 12, 6, 0 };

constexpr float gridAlpha = 0.35f;

constexpr float waitingSize = 13.0f;
constexpr float waitingGap = 4.0f;

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

ChartGrid makeSpectrumGrid (juce::Rectangle<float> area, const SpectrumChartTraceConfig& config)
{
    const auto range = SpectrumChartRange::of (config.getMode());
    const auto line = config.gridColour.withMultipliedAlpha (gridAlpha);
    const auto wide = [] (float db) { return static_cast<double> (db); };
    return { .axes = { .plot = area, .lowestDb = wide (range.minDb), .highestDb = wide (range.maxDb) },
        .frequencies = frequencies,
        .levels = levelLines (config.getMode()),
        .zeroLine = config.zeroLineColour.withMultipliedAlpha (2.0f * gridAlpha),
        .levelLine = line,
        .frequencyLine = line,
        .text = style::Theme::palette().textSecondary };
}

int getChipWidth (const juce::String& text)
{
    return std::max (7 * text.length() + 24, 48);
}

void paintChartGrid (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartTraceConfig& config,
    const primitives::PixelGrid& pixels)
{
    const juce::Graphics::ScopedSaveState saved (g);
    g.reduceClipRegion (area.getSmallestIntegerContainer());
    g.setColour (style::Theme::palette().surface3);
    g.fillRect (area);

    const auto grid = makeSpectrumGrid (area, config);
    paintGridLines (g, grid, pixels);
    paintGridLabels (g, grid, pixels);
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

void paintWaitingForAudio (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartTraceConfig& config)
{
    const auto pixels = primitives::PixelGrid::of (g);
    const auto font = style::boldFont (pixels.legible (waitingSize)).withExtraKerningFactor (0.08f);
    const juce::String text ("WAITING FOR AUDIO");

    // The labels stand along the left edge and the lower one.
    auto inside = area;
    for (const auto& label : placeGridLabels (makeSpectrumGrid (area, config), pixels))
        label.box.getBottom() > area.getBottom() - 4.0f
            ? inside.setBottom (std::min (inside.getBottom(), label.box.getY()))
            : inside.setLeft (std::max (inside.getX(), label.box.getRight() + waitingGap));

    const auto box =
        area.withSizeKeepingCentre (juce::GlyphArrangement::getStringWidth (font, text) + 2.0f, font.getHeight())
            .constrainedWithin (inside);

    if (box.getHeight() < font.getHeight())
        return;

    g.setFont (font);
    g.setColour (style::Theme::palette().textSecondary);
    g.drawFittedText (text, box.getLargestIntegerWithin(), juce::Justification::centred, 1, 0.5f);
}

} // namespace quillon::ui_pro::controls
