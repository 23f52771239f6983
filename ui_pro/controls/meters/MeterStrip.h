#pragma once

#include "ui_pro/controls/meters/MeterStripLayout.h"
#include "ui_pro/controls/meters/SegmentedBar.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/style/Theme.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>
#include <functional>

namespace quillon::ui_pro::controls
{

/** Two upright level bars with a scale of -48 to +12 dB, and a third bar once a gain reduction is known. Rises show at
    once, falls at 36 dB per second, so the owner may push levels at any rate. Message thread. */
class MeterStrip final : public juce::Component, public juce::SettableTooltipClient
{
public:
    MeterStrip();

    /** Linear peaks, 1 for full scale. */
    void setLevels (float linearL, float linearR);

    /** To the bottom, without a fall. */
    void clear();

    /** In dB, its sign ignored, at most 36. Shows the third bar from the first call on. */
    void setGainReduction (float db);

    void setBarColours (juce::Colour left, juce::Colour right);
    void setGainReductionColour (juce::Colour colour);
    void setLabels (const juce::String& left, const juce::String& right);

    float getLevelDbL() const { return levelDbL; }

    float getLevelDbR() const { return levelDbR; }

    float getGainReductionDb() const { return gainReductionDb; }

    bool isGainReductionShown() const { return showGainReduction; }

    void paint (juce::Graphics& g) override;
    void resized() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

    /** Milliseconds; decides how far the bars have fallen since the update before. */
    std::function<double()> clock = juce::Time::getMillisecondCounterHiRes;

private:
    using LitCounts = std::array<int, 3>; // left, right, gain reduction

    LitCounts countLit() const;
    void repaintChangedSegments();
    void paintStaticLayer (juce::Graphics& g) const;

    /** One font in which all titles fit, up to the size that is wanted. */
    juce::Font makeTitleFont (const std::array<juce::String, 3>& titles, float wanted) const;
    juce::String spokenValue() const;

    float levelDbL = -48.0f;
    float levelDbR = -48.0f;
    float gainReductionDb = 0.0f;
    double lastUpdateMs = 0.0;
    juce::Colour barColourL = style::Theme::get().meter.stripBar;
    juce::Colour barColourR = style::Theme::get().meter.stripBar;
    juce::Colour gainReductionColour = style::Theme::get().meter.gainReduction;
    juce::String labelL { "IN" };
    juce::String labelR { "OUT" };
    bool showGainReduction = false;

    MeterStripLayout layout;
    std::array<SegmentedBar, 3> bars;
    LitCounts lit {};
    primitives::CachedLayer staticLayer;
};

} // namespace quillon::ui_pro::controls
