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

juce::RangedAudioParameter& bypassOf (KestrelProcessor& processor, std::size_t lane)
{
    return *processor.getCore().getTree().getParameter (
        infoOf (lane == 0 ? Parameter::laneABypass : Parameter::laneBBypass).id);
}

} // namespace

LaneSection::LaneSection (KestrelProcessor& processorToShow, std::size_t laneToShow, std::function<void()> onStep)
    : processor (processorToShow),
      lane (laneToShow),
      stepCallback (std::move (onStep)),
      bypass (bypassOf (processorToShow, laneToShow)),
      chart (KestrelChartView::create (processorToShow, laneToShow)),
      powerButton (style::Theme::accent (powerColours[laneToShow])),
      powerAttachment (bypass, [this] (float) { refreshPower(); })
{
    initialiseLaneControls();
    initialisePowerButton();
    initialiseParameterAttachments();
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

    title.setText ("ENABLED", juce::dontSendNotification);
    title.setFont (style::boldFont (12.0f));
    title.setJustificationType (juce::Justification::centredLeft);
    title.setColour (juce::Label::textColourId, style::Theme::palette().textPrimary);
    title.setBorderSize ({});
    title.setInterceptsMouseClicks (false, false);
    meterStrip.setTitle ("Levels, " + laneName);
}

void LaneSection::initialisePowerButton()
{
    powerButton.setTitle ("Enabled, " + juce::String (lane == 0 ? "lane A" : "lane B"));
    powerButton.setTooltip ("Switch the lane on or off.");

    // The button has already changed when it is clicked; lit means that the lane is not bypassed.
    powerButton.onClick = [this] { togglePower(); };
    refreshPower();
}

void LaneSection::togglePower()
{
    auto& history = processor.getCore().getHistory();
    history.beginStep();
    powerAttachment.setValueAsCompleteGesture (powerButton.getToggleState() ? 0.0f : 1.0f);
    history.endStep();
    stepCallback();
}

void LaneSection::initialiseParameterAttachments()
{
    auto& core = processor.getCore();

    for (std::size_t i = 0; i < knobs.size(); ++i)
    {
        auto& parameter = *core.getTree().getParameter (infoOf (onLane (laneKnobs[i].parameter, lane)).id);
        bindings[i] = std::make_unique<LaneKnobBinding> (parameter, knobs[i], core.getHistory(), stepCallback);
    }
}

template <typename Function>
void LaneSection::forEach (Function&& function)
{
    function (panel);
    function (*chart);
    function (meterStrip);
    function (powerButton);
    function (title);

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
    powerButton.setToggleState (bypass.getValue() < flagThreshold, juce::dontSendNotification);
}

} // namespace kestreleq
