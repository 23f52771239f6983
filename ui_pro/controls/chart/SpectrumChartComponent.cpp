#include "ui_pro/controls/chart/SpectrumChartComponent.h"

#include "ui_pro/controls/chart/CurvePainter.h"
#include "ui_pro/controls/chart/SpectrumAxes.h"
#include "ui_pro/controls/chart/SpectrumChartFrame.h"
#include "ui_pro/primitives/TextValueHandler.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float spectrumLineWidth = 1.15f;
constexpr float differenceLineWidth = 1.45f;
constexpr float smallestWidthScale = 0.25f;

/** The values of a snapshot; none when it is invalid or silent. */
std::vector<float> readValues (const SpectrumChartSnapshot& snapshot)
{
    if (! snapshot.valid || snapshot.valueAt == nullptr)
        return {};

    std::vector<float> values (static_cast<std::size_t> (snapshot.binCount));

    for (std::uint64_t i = 0; i < snapshot.binCount; ++i)
        values[static_cast<std::size_t> (i)] = snapshot.valueAt (i);

    return isSilent (values.data(), values.size()) ? std::vector<float>() : values;
}

/** The points of a curve in its mode. */
template <typename ValueAt>
std::vector<juce::Point<float>> makePoints (
    juce::Rectangle<float> area, SpectrumChartMode mode, std::size_t count, ValueAt&& valueAt)
{
    const auto range = SpectrumChartRange::of (mode);
    std::vector<juce::Point<float>> points;
    points.reserve (count);

    for (std::size_t i = 0; i < count; ++i)
    {
        const auto frequency = binFrequency (i, count);
        const float value = valueAt (i);
        const auto shown = mode == SpectrumChartMode::spectrum ? value
            : mode == SpectrumChartMode::difference            ? shownGain (value, frequency)
                                                               : shownGainMagnitude (value, frequency);
        points.emplace_back (frequencyToX (frequency, area), dbToY (shown, area, range.minDb, range.maxDb));
    }

    return points;
}

/** What stands on the grid: the traces of some values and their chips, or that there is nothing to show. */
void paintTraces (juce::Graphics& g, juce::Rectangle<float> area, const std::vector<float>& values,
    SpectrumChartVisibility visibility, style::AccentColorRole accentRole, float lineWidthScale,
    const SpectrumChartTraceConfig& traceConfig, const std::vector<SpectrumChartExtraTrace>& extraTraces)
{
    if (values.empty())
    {
        paintWaitingForAudio (g, area, traceConfig);
        return;
    }

    const auto mode = traceConfig.getMode();
    const auto range = SpectrumChartRange::of (mode);
    const auto colour =
        traceConfig.traceColour.isTransparent() ? style::Theme::accentForId (accentRole) : traceConfig.traceColour;
    std::vector<SpectrumChartChip> chips;

    if (visibility.trace)
    {
        const auto points = makePoints (area, mode, values.size(), [&values] (std::size_t i) { return values[i]; });
        const auto isSpectrum = mode == SpectrumChartMode::spectrum;

        if (traceConfig.fill)
            fillCurve (g, points, dbToY (range.baseline, area, range.minDb, range.maxDb), area, colour);

        strokeCurve (g, points, (isSpectrum ? spectrumLineWidth : differenceLineWidth) * lineWidthScale, colour);

        if (! isSpectrum)
            chips.push_back ({ "DIFF", colour });
    }

    if (visibility.extraTraces)
    {
        for (const auto& trace : extraTraces)
        {
            if (trace.valueAt == nullptr)
                continue;

            const auto points = makePoints (area, mode, values.size(), trace.valueAt);
            strokeCurve (g, points, trace.lineWidth * lineWidthScale, trace.colour);
            chips.push_back ({ trace.label.isEmpty() ? "TRACE" : trace.label, trace.colour });
        }
    }

    if (! chips.empty())
        paintChartChips (g, area, chips);
}

} // namespace

SpectrumChartComponent::SpectrumChartComponent()
{
    setTitle ("Spectrum");
}

void SpectrumChartComponent::setSnapshot (SpectrumChartSnapshot&& newSnapshot)
{
    snapshot = std::move (newSnapshot);
    auto values = readValues (snapshot);

    // Silence after silence, or a stopped spectrum, is the same picture; extra traces may still have moved.
    if (values == shownValues && extraTraces.empty())
        return;

    shownValues = std::move (values);
    repaint();
}

void SpectrumChartComponent::setVisibility (SpectrumChartVisibility newVisibility)
{
    if (visibility == newVisibility)
        return;

    visibility = newVisibility;
    repaint();
}

void SpectrumChartComponent::setTraceConfig (SpectrumChartTraceConfig newConfig)
{
    if (traceConfig == newConfig)
        return;

    traceConfig = newConfig;
    gridLayer.invalidate();
    repaint();
}

void SpectrumChartComponent::setExtraTraces (std::vector<SpectrumChartExtraTrace>&& newTraces)
{
    if (extraTraces.empty() && newTraces.empty())
        return;

    extraTraces = std::move (newTraces);
    repaint();
}

void SpectrumChartComponent::clearExtraTraces()
{
    setExtraTraces ({});
}

template <typename Type>
void SpectrumChartComponent::changeConfig (Type SpectrumChartTraceConfig::*field, Type value)
{
    auto config = traceConfig;
    config.*field = value;
    setTraceConfig (config);
}

void SpectrumChartComponent::setSpectrumScale (bool shouldUseSpectrumScale)
{
    changeConfig (&SpectrumChartTraceConfig::spectrumScale, shouldUseSpectrumScale);
}

void SpectrumChartComponent::setSignedDifference (bool shouldBeSigned)
{
    changeConfig (&SpectrumChartTraceConfig::signedDifference, shouldBeSigned);
}

void SpectrumChartComponent::setFill (bool shouldFill)
{
    changeConfig (&SpectrumChartTraceConfig::fill, shouldFill);
}

void SpectrumChartComponent::setZeroLineColour (juce::Colour colour)
{
    changeConfig (&SpectrumChartTraceConfig::zeroLineColour, colour);
}

void SpectrumChartComponent::setGridColour (juce::Colour colour)
{
    changeConfig (&SpectrumChartTraceConfig::gridColour, colour);
}

void SpectrumChartComponent::setTraceColour (juce::Colour colour)
{
    changeConfig (&SpectrumChartTraceConfig::traceColour, colour);
}

void SpectrumChartComponent::setAccentRole (style::AccentColorRole newRole)
{
    if (accentRole == newRole)
        return;

    accentRole = newRole;
    repaint();
}

void SpectrumChartComponent::setLineWidthScale (float newScale)
{
    const auto scale = newScale > smallestWidthScale ? newScale : smallestWidthScale;

    if (std::exchange (lineWidthScale, scale) != scale)
        repaint();
}

void SpectrumChartComponent::paintChart (juce::Graphics& g, juce::Rectangle<float> area,
    const SpectrumChartSnapshot& snapshot, SpectrumChartVisibility visibility, style::AccentColorRole accentRole,
    float lineWidthScale, SpectrumChartTraceConfig traceConfig, const std::vector<SpectrumChartExtraTrace>& extraTraces)
{
    if (area.isEmpty())
        return;

    if (visibility.grid)
        paintChartGrid (g, area, traceConfig, primitives::PixelGrid::of (g));

    paintTraces (g, area, readValues (snapshot), visibility, accentRole, lineWidthScale, traceConfig, extraTraces);
}

void SpectrumChartComponent::paint (juce::Graphics& g)
{
    const auto area = getLocalBounds().toFloat();

    if (visibility.grid)
        gridLayer.draw (g, *this,
            [this, area] (juce::Graphics& layer)
            { paintChartGrid (layer, area, traceConfig, primitives::PixelGrid::of (layer, *this)); });

    paintTraces (g, area, shownValues, visibility, accentRole, lineWidthScale, traceConfig, extraTraces);
}

std::unique_ptr<juce::AccessibilityHandler> SpectrumChartComponent::createAccessibilityHandler()
{
    return primitives::makeTextValueHandler (*this, juce::AccessibilityRole::image,
        [this]
        {
            if (shownValues.empty())
                return juce::String ("waiting for audio");

            const auto peak = std::max_element (shownValues.begin(), shownValues.end());
            const auto bin = static_cast<std::size_t> (peak - shownValues.begin());
            return "highest " + juce::String (*peak, 1) + " dB at " +
                juce::String (juce::roundToInt (binFrequency (bin, shownValues.size()))) + " Hz";
        });
}

} // namespace quillon::ui_pro::controls
