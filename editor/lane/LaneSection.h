#pragma once

#include "editor/ChannelMode.h"
#include "editor/EditorLayout.h"
#include "editor/chart/KestrelChartView.h"
#include "editor/lane/LaneKnobs.h"
#include "editor/lane/LanePanel.h"

#include "ui_pro/controls/buttons/LaneEnableAttachment.h"
#include "ui_pro/controls/buttons/PowerButton.h"
#include "ui_pro/controls/knob/KnobAttachment.h"
#include "ui_pro/controls/meters/MeterStrip.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace kestreleq
{

/** Everything that the editor shows of one lane: its panel, chart, meters, power switch and knobs, connected to the
    lane's parameters. The controls are siblings on the canvas. Message thread. */
class LaneSection
{
public:
    /** Lane 0 or 1. The processor must outlive this object; the hooks enclose each gesture. */
    LaneSection (KestrelProcessor& processorToShow, std::size_t laneToShow,
        const quillon::ui_pro::primitives::GestureHooks& hooks);

    void addTo (juce::Component& canvas);
    void place (const layout::Lane& places);
    void setVisible (bool shouldBeVisible);
    void setLook (const ChannelMode::Lane& look);

    /** Follows the lane's bypass and the master bypass, whoever changed them: what is off looks off. */
    void refreshPower();

    /** Takes the levels of the lane's input and output, linear. */
    void setLevels (float input, float output) { meterStrip.setLevels (input, output); }

    /** Shows silence, without a fall. */
    void clearLevels()
    {
        meterStrip.clear();
        chart->getSpectrum().clear();
    }

    /** In milliseconds; of the meters' and the spectrum's fall. */
    void setClock (const std::function<double()>& clock)
    {
        meterStrip.clock = clock;
        chart->getSpectrum().clock = clock;
    }

    KestrelChartView& getChart() { return *chart; }

    LanePanel& getPanel() { return panel; }

    quillon::ui_pro::controls::KnobControl& getKnob (std::size_t index) { return knobs[index]; }

    quillon::ui_pro::controls::PowerButton& getPowerButton() { return powerButton; }

    quillon::ui_pro::controls::MeterStrip& getMeterStrip() { return meterStrip; }

private:
    struct Power
    {
        bool enabled = true; // the lane's own switch
        bool active = true;  // and the master bypass is off

        bool operator== (const Power&) const = default;
    };

    void initialiseLaneControls();
    void initialisePowerButton (const quillon::ui_pro::primitives::GestureHooks& hooks);
    void initialiseParameterAttachments (const quillon::ui_pro::primitives::GestureHooks& hooks);

    /** Every control, in order of painting. */
    template <typename Function>
    void forEach (Function&& function);

    KestrelProcessor& processor;
    const std::size_t lane;

    LanePanel panel;
    std::unique_ptr<KestrelChartView> chart;
    quillon::ui_pro::controls::MeterStrip meterStrip;
    quillon::ui_pro::controls::PowerButton powerButton;
    juce::Label title;
    std::optional<Power> shownPower;
    std::array<quillon::ui_pro::controls::KnobControl, laneKnobs.size()> knobs;

    // Last, so that they go before the controls that they drive.
    std::array<std::unique_ptr<juce::ParameterAttachment>, laneKnobs.size()> knobAttachments;
    quillon::ui_pro::controls::LaneEnableAttachment powerAttachment;
};

} // namespace kestreleq
