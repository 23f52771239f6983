#include "ui_pro/controls/meters/MeterStripLayout.h"

#include "ui_pro/controls/meters/MeterScale.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int margin = 4;
constexpr int titleHeight = 14;
constexpr int titleGap = 2;
constexpr int bottomHeight = 18;
constexpr int scaleWidth = 28;
constexpr int barGap = 4;
constexpr float markHeight = 14.0f;

} // namespace

MeterStripLayout MeterStripLayout::of (juce::Rectangle<int> bounds, bool withGainReduction)
{
    MeterStripLayout layout;
    auto area = bounds.reduced (margin);
    layout.titleBand = area.removeFromTop (titleHeight);
    area.removeFromTop (titleGap);
    area.removeFromBottom (bottomHeight);
    layout.scale = area.removeFromRight (scaleWidth);

    layout.numBars = withGainReduction ? 3 : 2;
    const auto gaps = barGap * (layout.numBars - 1);
    const auto width = std::clamp ((area.getWidth() - gaps) / layout.numBars, 1, withGainReduction ? 15 : 24);
    const auto groupWidth = width * layout.numBars + gaps;
    layout.group = area.withX (area.getX() + (area.getWidth() - groupWidth) / 2).withWidth (groupWidth);

    for (int i = 0; i < layout.numBars; ++i)
        layout.bars[static_cast<std::size_t> (i)] =
            layout.group.withX (layout.group.getX() + i * (width + barGap)).withWidth (width);

    return layout;
}

juce::Rectangle<float> MeterStripLayout::getMark (float db) const
{
    const auto column = scale.toFloat();
    const auto y = column.getBottom() - meterFraction (db) * column.getHeight();
    return column.withY (y - markHeight / 2.0f).withHeight (markHeight);
}

juce::Rectangle<int> MeterStripLayout::getTitle (int bar) const
{
    const auto column = bars[static_cast<std::size_t> (bar)].expanded (barGap / 2 - 1, 0); // neighbours stay apart
    return titleBand.withX (column.getX()).withWidth (column.getWidth());
}

} // namespace quillon::ui_pro::controls
