#include "ui_pro/controls/knob/KnobLayout.h"

#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

KnobLayout layOutStacked (juce::Rectangle<int> inner, const KnobLayoutOptions& options)
{
    const auto labelHeight = options.showLabel ? options.labelHeight : 0;
    const auto labelGap = options.showLabel ? options.labelGap : 0;
    const auto valueHeight = options.showValue ? style::Theme::get().knob.valueHeight : 0;
    const auto valueGap = options.showValue ? options.valueGap : 0;

    const auto width = inner.getWidth();
    const auto forTexts = labelHeight + labelGap + valueGap + valueHeight;
    const auto room = std::clamp (inner.getHeight() - forTexts, 1, width);
    const auto diameter = std::max (std::min (options.maxDiameter, room), 1);
    auto top = inner.getY() + std::max ((inner.getHeight() - diameter - forTexts) / 2, 0);

    KnobLayout layout;

    if (options.showLabel)
    {
        layout.label = { inner.getX(), top, width, labelHeight };
        top += labelHeight + labelGap;
    }

    layout.knob = { inner.getX() + (width - diameter) / 2, top, diameter, diameter };

    if (options.showValue)
        layout.value = { inner.getX(), top + diameter + valueGap, width, valueHeight };

    return layout;
}

KnobLayout layOutCompact (juce::Rectangle<int> area, const KnobLayoutOptions& options)
{
    const auto& tokens = style::Theme::get().knob;
    KnobLayout layout;

    if (options.showLabel)
    {
        layout.label = area.removeFromTop (options.labelHeight);
        area.removeFromTop (options.labelGap);
    }

    if (options.showValue)
    {
        layout.value = area.removeFromRight (tokens.valueWidth);
        area.removeFromRight (options.valueGap);
    }

    const auto diameter = std::clamp (std::min (area.getWidth(), area.getHeight()), 1, tokens.maxDiameter);
    layout.knob = { area.getX() + (area.getWidth() - diameter) / 2, area.getY() + (area.getHeight() - diameter) / 2,
        diameter, diameter };
    return layout;
}

} // namespace

KnobLayout layOutKnob (juce::Rectangle<int> bounds, const KnobLayoutOptions& options)
{
    const auto padding = style::Theme::get().knob.paddingX;
    const auto inner = bounds.withX (bounds.getX() + padding).withWidth (std::max (bounds.getWidth() - 2 * padding, 0));

    if (inner.isEmpty())
        return {};

    return options.stacked ? layOutStacked (inner, options) : layOutCompact (inner, options);
}

} // namespace quillon::ui_pro::controls
