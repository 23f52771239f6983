#pragma once

#include "ui_pro/controls/meters/SmallMeter.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <array>
#include <functional>

namespace quillon::ui_pro::controls
{

/** Two rows, each a caption, a level bar and the level in dB. Message thread. */
class MeterPair final : public primitives::GroupComponent
{
public:
    MeterPair (const juce::String& captionA, const juce::String& captionB);

    /** Linear peaks, 1 for full scale. */
    void setLevels (float linearA, float linearB);

    /** To the bottom, without a fall. */
    void clear();

    void setColours (juce::Colour a, juce::Colour b);

    const SmallMeter& getMeter (int row) const { return rows[static_cast<std::size_t> (row)].meter; }

    juce::Rectangle<int> getCaptionBounds (int row) const;

    /** Within the component, which cuts the box at its right edge. */
    juce::Rectangle<int> getReadoutBounds (int row) const;

    const juce::String& getReadout (int row) const { return rows[static_cast<std::size_t> (row)].readout; }

    void paint (juce::Graphics& g) override;
    void resized() override;

    /** Milliseconds; the clock of both meters. */
    std::function<double()> clock = juce::Time::getMillisecondCounterHiRes;

private:
    struct Row
    {
        SmallMeter meter;
        juce::String caption;
        float readoutDb = -60.0f;
        juce::String readout { "-" };
    };

    void showLevel (int row, float linear);
    void paintStaticLayer (juce::Graphics& g) const;

    std::array<Row, 2> rows;
    primitives::CachedLayer staticLayer;
};

} // namespace quillon::ui_pro::controls
