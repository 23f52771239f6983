#pragma once

#include "ui_pro/controls/meters/SegmentedBar.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/style/Theme.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace quillon::ui_pro::controls
{

/** One level bar that grows to the right, on the scale of -48 to +12 dB and with the fall of the other meters. It fills
    its bounds; the rim of its trough lies around them and is the owner's to paint. Message thread. */
class SmallMeter final : public juce::Component, public juce::SettableTooltipClient
{
public:
    SmallMeter();

    /** A linear peak, 1 for full scale. */
    void setLevel (float linear);

    /** To the bottom, without a fall. */
    void clear();

    void setColour (juce::Colour colour);

    float getLevelDb() const { return levelDb; }

    /** Fills the trough of a meter with these bounds, rim and all. */
    static void paintTrough (juce::Graphics& g, juce::Rectangle<float> meterBounds);

    void paint (juce::Graphics& g) override;
    void resized() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

    /** Milliseconds; decides how far the bar has fallen since the update before. */
    std::function<double()> clock = juce::Time::getMillisecondCounterHiRes;

private:
    void show (float db);

    float levelDb = -48.0f;
    double lastUpdateMs = 0.0;
    juce::Colour barColour = style::Theme::get().meter.smallBar;

    SegmentedBar bar;
    int lit = 0;
    primitives::CachedLayer staticLayer;
};

} // namespace quillon::ui_pro::controls
