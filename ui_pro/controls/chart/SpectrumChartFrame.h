#pragma once

#include "ui_pro/controls/chart/ChartGrid.h"
#include "ui_pro/controls/chart/SpectrumChartTypes.h"

#include <vector>

namespace quillon::ui_pro::controls
{

/** The level range of a chart's mode, and where its fill starts. All in dB. */
struct SpectrumChartRange
{
    static SpectrumChartRange of (SpectrumChartMode mode);

    float minDb = 0.0f;
    float maxDb = 0.0f;
    float baseline = 0.0f;
};

struct SpectrumChartChip
{
    juce::String text;
    juce::Colour colour;
};

/** The width in pixels of a chip with this text. */
int getChipWidth (const juce::String& text);

/** The lines and labels of a chart that fills the area. */
ChartGrid makeSpectrumGrid (juce::Rectangle<float> area, const SpectrumChartTraceConfig& config);

/** The background, the frequency and level lines and their labels. */
void paintChartGrid (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartTraceConfig& config,
    const primitives::PixelGrid& pixels);

/** The chips in the upper right corner, as many as have room. */
void paintChartChips (juce::Graphics& g, juce::Rectangle<float> area, const std::vector<SpectrumChartChip>& chips);

/** What stands in the middle of a chart that has nothing to show, or beside it where the labels are. */
void paintWaitingForAudio (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartTraceConfig& config);

} // namespace quillon::ui_pro::controls
