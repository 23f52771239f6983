#pragma once

#include "ui_pro/controls/chart/SpectrumChartTypes.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/style/AccentColorRole.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

namespace quillon::ui_pro::controls
{

/** Draws a spectrum, or a curve of gain differences, over a logarithmic frequency axis from 20 Hz to 20 kHz. Message
    thread. */
class SpectrumChartComponent final : public juce::Component, public juce::SettableTooltipClient
{
public:
    SpectrumChartComponent();

    /** Takes the next picture; its callback is asked once for every bin, now. Those of the extra traces are asked
        whenever the chart is painted. */
    void setSnapshot (SpectrumChartSnapshot&& newSnapshot);

    void setVisibility (SpectrumChartVisibility newVisibility);
    void setTraceConfig (SpectrumChartTraceConfig newConfig);
    void setExtraTraces (std::vector<SpectrumChartExtraTrace>&& newTraces);
    void clearExtraTraces();

    // The fields of the trace configuration, one by one.
    void setSpectrumScale (bool shouldUseSpectrumScale);
    void setSignedDifference (bool shouldBeSigned);
    void setFill (bool shouldFill);
    void setZeroLineColour (juce::Colour colour);
    void setGridColour (juce::Colour colour);
    void setTraceColour (juce::Colour colour);

    void setAccentRole (style::AccentColorRole newRole);

    /** Widens every line by this factor; at least 0.25. */
    void setLineWidthScale (float newScale);

    float getLineWidthScale() const { return lineWidthScale; }

    const SpectrumChartTraceConfig& getTraceConfig() const { return traceConfig; }

    /** Draws a whole chart into an area of any component; the area is the plot from edge to edge. */
    static void paintChart (juce::Graphics& g, juce::Rectangle<float> area, const SpectrumChartSnapshot& snapshot,
        SpectrumChartVisibility visibility, style::AccentColorRole accentRole, float lineWidthScale,
        SpectrumChartTraceConfig traceConfig, const std::vector<SpectrumChartExtraTrace>& extraTraces);

    void paint (juce::Graphics& g) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    template <typename Type>
    void changeConfig (Type SpectrumChartTraceConfig::*field, Type value);

    SpectrumChartSnapshot snapshot;
    SpectrumChartVisibility visibility;
    SpectrumChartTraceConfig traceConfig;
    std::vector<SpectrumChartExtraTrace> extraTraces;
    style::AccentColorRole accentRole = style::accentRole (16);
    float lineWidthScale = 1.0f;

    std::vector<float> shownValues; // empty while the chart waits for audio
    primitives::CachedLayer gridLayer { primitives::CachedLayer::Picture::opaque };
};

} // namespace quillon::ui_pro::controls
