#include "editor/lane/LaneSection.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr std::array powerColours { 3, 6 }; // accent roles of the lanes until the channel mode tells

} // namespace

LaneSection::LaneSection (
    KestrelProcessor& processorToShow, std::size_t laneToShow, const primitives::GestureHooks& hooks)
    : processor (processorToShow),
      lane (laneToShow),
      chart (KestrelChartView::create (processorToShow, laneToShow)),
      powerButton (style::Theme::accent (powerColours[laneToShow])),
      powerAttachment (
          processor.getCore().getTree()[lane == 0 ? Parameter::laneABypass : Parameter::laneBBypass], powerButton)
{
    initialiseLaneControls();
    initialisePowerButton (hooks);
    initialiseParameterAttachments (hooks);
}

void LaneSection::initialiseLaneControls()
{
    const juce::String laneName (lane == 0 ? "lane A" : "lane B");

    for (std::size_t i = 0; i < knobs.size(); ++i)
    {
        const auto& row = laneKnobs[i];
        auto& knob = knobs[i];
        knob.setLabel (row.caption);
        knob.setTitle (juce::String (row.caption) + ", " + laneName);
        knob.setTooltip (juce::String (row.help) + ". Drag up or down; a double-click sets the default.");
        knob.setColourId (row.colourId);
        knob.setSteps (row.steps);
        knob.setValue (row.position);
        knob.setValueText (row.text);
        knob.setShowLabel (true);
        knob.setMaxDiameter (58);
        knob.setLabelGap (2);
        knob.setValueGap (2);
        knob.setEnabled (true);
    }

    title.setFont (style::boldFont (12.0f));
    title.setJustificationType (juce::Justification::centredLeft);
    title.setBorderSize ({});
    title.setInterceptsMouseClicks (false, false);
    meterStrip.setTitle ("Levels, " + laneName);
}

void LaneSection::initialisePowerButton (const primitives::GestureHooks& hooks)
{
    powerButton.setTitle ("Enabled, " + juce::String (lane == 0 ? "lane A" : "lane B"));
    powerButton.setTooltip ("Switch the lane on or off.");
    powerButton.onGestureStart = hooks.start;
    powerButton.onGestureEnd = hooks.end;
}

void LaneSection::initialiseParameterAttachments (const primitives::GestureHooks& hooks)
{
    for (std::size_t i = 0; i < knobs.size(); ++i)
        knobAttachments[i] = std::make_unique<controls::KnobAttachment> (
            processor.getCore().getTree()[onLane (laneKnobs[i].parameter, lane)], knobs[i], hooks);
}

template <typename Function>
void LaneSection::forEach (Function&& function)
{
    function (panel);
    function (powerButton);
    function (title);
    function (*chart);
    function (meterStrip);

    for (auto& knob : knobs)
        function (knob);
}

void LaneSection::addTo (juce::Component& canvas)
{
    forEach ([&] (juce::Component& control) { canvas.addAndMakeVisible (control); });
}

void LaneSection::setVisible (bool shouldBeVisible)
{
    forEach ([&] (juce::Component& control) { control.setVisible (shouldBeVisible); });
}

void LaneSection::place (const layout::Lane& places)
{
    panel.setBounds (places.panel);
    panel.setTall (places.tall);
    chart->setBounds (places.chart);
    chart->setSurface (
        [this] (juce::Graphics& g)
        {
            g.setOrigin (panel.getPosition() - chart->getPosition());
            panel.paintPanel (g);
        });
    meterStrip.setBounds (places.meterStrip);
    powerButton.setBounds (places.powerButton);
    title.setBounds (places.title);

    for (std::size_t i = 0; i < knobs.size(); ++i)
        knobs[i].setBounds (places.knobs[i]);
}

void LaneSection::setLook (const ChannelMode::Lane& look)
{
    panel.setCaption (look.caption, look.colour);
    powerButton.setColour (look.colour);
    chart->setColour (look.colour);
    meterStrip.setBarColours (ChannelMode::neutral(), look.meterColour);
}

void LaneSection::refreshPower()
{
    powerAttachment.sendInitialUpdate();

    const auto& values = processor.getCore().getValues();
    const auto enabled = ! values.isOn (lane == 0 ? Parameter::laneABypass : Parameter::laneBBypass);
    const Power power { enabled, enabled && ! values.isOn (Parameter::bypass) };

    if (std::exchange (shownPower, power) == power)
        return;

    const auto& palette = style::Theme::palette();
    chart->setActive (power.active);
    panel.setActive (power.active);
    title.setText (power.enabled ? "ENABLED" : "OFF", juce::dontSendNotification);
    title.setColour (juce::Label::textColourId, power.active ? palette.textPrimary : palette.textMuted);
}

} // namespace kestreleq
