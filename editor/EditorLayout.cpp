#include "editor/EditorLayout.h"

#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>

namespace kestreleq::layout
{
namespace
{

using quillon::ui_pro::style::Theme;

constexpr double smallestScale = 0.5;
constexpr double scaleStep = 0.05;
constexpr int largestScaleStep = 30;
constexpr int titleBarHeight = 48; // with what a host adds to it

constexpr int footerRise = 83; // the theme's strip stands on a taller canvas
constexpr int meterPairWidth = 360;
constexpr int footerLabelHeight = 18;

constexpr int knobHeight = 128;
constexpr int largestKnobWidth = 118;
constexpr int knobGap = 4;
constexpr int chartOffset = 148;
constexpr int chartHeight = 196;

} // namespace

int stepOfScale (float scale)
{
    return std::clamp (static_cast<int> (std::lround ((static_cast<double> (scale) - smallestScale) / scaleStep)), 0,
        largestScaleStep);
}

juce::Rectangle<int> openingSize (int step, juce::Rectangle<int> userArea)
{
    auto scale = smallestScale + scaleStep * std::clamp (step, 0, largestScaleStep);

    if (! userArea.isEmpty())
        scale = std::max (smallestScale,
            std::min ({ scale, static_cast<double> (userArea.getWidth()) / designWidth,
                static_cast<double> (userArea.getHeight() - titleBarHeight) / designHeight }));

    return { juce::roundToInt (designWidth * scale), juce::roundToInt (designHeight * scale) };
}

juce::AffineTransform ContentPlacement::transform() const
{
    return juce::AffineTransform::scale (scale).translated (bounds.getPosition());
}

ContentPlacement placeContent (int windowWidth, int windowHeight)
{
    const auto scale = std::min (static_cast<float> (windowHeight) / static_cast<float> (designHeight),
        static_cast<float> (windowWidth) / static_cast<float> (designWidth));
    const auto scaled = [scale] (int length)
    { return static_cast<int> (std::nearbyint (scale * static_cast<float> (length))); };
    const auto width = scaled (designWidth);
    const auto height = scaled (designHeight);

    return { scale, { (windowWidth - width) / 2, (windowHeight - height) / 2, width, height } };
}

Lane placeLane (std::size_t lane, bool linked)
{
    Lane result;
    result.tall = lane == 0 && linked;
    result.panel = { 12, lane == 0 ? 78 : 434, 1368, result.tall ? 704 : 348 };

    const auto [x, y] = result.panel.getPosition();
    const auto usable = std::max (result.panel.getWidth() - 158, 0);
    const auto height = result.tall ? std::max (std::max (result.panel.getHeight() - 20, 0) - 147, 0) : chartHeight;

    result.chart = { x + chartOffset, y + 20, std::max (usable - 90, 0), height };
    result.meterStrip = { x + 58 + usable, y + 20, 90, height };
    result.powerButton = { x + 32, y + 78, 26, 26 };
    result.title = { result.powerButton.getRight() + 4, result.powerButton.getY() + 2, 72, 26 };

    // Five bands, and apart from them the two knobs of the air band; the row is centred under the chart.
    const auto width = std::clamp ((usable - 48) / knobsPerLane, 1, largestKnobWidth);
    const auto bandsWidth = 5 * width + 4 * knobGap;
    const auto spare = usable - (2 * width + 32) - bandsWidth;
    const auto start = x + chartOffset + std::max (spare / 2, 0);
    const std::array<int, knobsPerLane> offsets { 0, width + knobGap, 2 * (width + knobGap), 3 * (width + knobGap),
        4 * (width + knobGap), bandsWidth + 28, bandsWidth + 32 + width };

    for (std::size_t i = 0; i < offsets.size(); ++i)
        result.knobs[i] = { start + offsets[i], y + height + 24, width, knobHeight };

    return result;
}

Footer placeFooter()
{
    const auto& slots = Theme::get().footer;
    const auto bar = slots.strip.translated (0, -footerRise);
    const auto rowHeight = bar.getHeight() - 2 * slots.inset;
    const auto inRow = [&] (int x, int width)
    { return juce::Rectangle<int> (bar.getX() + x, bar.getY() + slots.inset, width, rowHeight); };

    return { .bar = bar,
        .oversampling = inRow (slots.oversampling.getX(), slots.oversampling.getWidth()),
        .latency = inRow (slots.latency.getX(), slots.latency.getWidth()),
        .sampleRate = inRow (slots.sampleRate.getX(), slots.sampleRate.getWidth()),
        .inputMeters = inRow (320, meterPairWidth),
        .outputMeters = inRow (1000, meterPairWidth),
        .outputMode = inRow (slots.outputMode.getX(), slots.outputMode.getWidth()),
        .cpuUsage = inRow (slots.cpuUsage.getX(), slots.cpuUsage.getWidth()),
        .label = inRow (slots.label.getX(), bar.getWidth() - slots.rightInset - slots.label.getX())
                     .translated (0, slots.labelOffset)
                     .withHeight (footerLabelHeight) };
}

} // namespace kestreleq::layout
