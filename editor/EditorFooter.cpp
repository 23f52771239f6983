#include "editor/EditorFooter.h"

#include "editor/EditorLayout.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr double usualSampleRate = 48000.0;
constexpr int stereo = 1;

} // namespace

EditorFooter::EditorFooter (KestrelProcessor& processorToShow, const juce::String& labelText)
    : processor (processorToShow)
{
    outputMode.setMode (stereo);
    outputMode.setKnobShown (false);

    inputMeters.setTitle ("Input levels");
    outputMeters.setTitle ("Output levels");

    label.setText (labelText, juce::dontSendNotification);
    label.setFont (style::regularFont (11.0f));
    label.setColour (juce::Label::textColourId, style::Theme::palette().textSecondary);
    label.setJustificationType (juce::Justification::centredRight);
    label.setBorderSize ({});
    label.setMinimumHorizontalScale (1.0f);
    label.setInterceptsMouseClicks (false, false);
}

void EditorFooter::addTo (juce::Component& canvas)
{
    for (juce::Component* control : { static_cast<juce::Component*> (&bar), static_cast<juce::Component*> (&latency),
             static_cast<juce::Component*> (&sampleRate), static_cast<juce::Component*> (&outputMode),
             static_cast<juce::Component*> (&cpuUsage), static_cast<juce::Component*> (&oversampling),
             static_cast<juce::Component*> (&inputMeters), static_cast<juce::Component*> (&outputMeters),
             static_cast<juce::Component*> (&label) })
        canvas.addAndMakeVisible (control);
}

void EditorFooter::place()
{
    const auto places = layout::placeFooter();
    bar.setBounds (places.bar);
    oversampling.setBounds (places.oversampling);
    latency.setBounds (places.latency);
    sampleRate.setBounds (places.sampleRate);
    inputMeters.setBounds (places.inputMeters);
    outputMeters.setBounds (places.outputMeters);
    outputMode.setBounds (places.outputMode);
    cpuUsage.setBounds (places.cpuUsage);
    label.setBounds (places.label);
}

void EditorFooter::setMode (const ChannelMode& mode)
{
    const auto output = mode.outputColours();
    inputMeters.setColours (ChannelMode::neutral(), ChannelMode::neutral());
    outputMeters.setColours (output[0], output[1]);
}

void EditorFooter::setLevels (const std::array<float, numLanes>& input, const std::array<float, numLanes>& output)
{
    inputMeters.setLevels (input[0], input[1]);
    outputMeters.setLevels (output[0], output[1]);
}

void EditorFooter::refreshTelemetry()
{
    const auto rate = processor.getSampleRate() > 0.0 ? processor.getSampleRate() : usualSampleRate;
    const auto load = std::clamp (processor.getRenderLoad(), 0.0, 1.0);

    latency.setLatency (static_cast<float> (processor.getLatencySamples() * 1000.0 / rate));
    sampleRate.setSampleRate (rate);
    cpuUsage.setCpuLoad (static_cast<float> (load * 100.0));
}

} // namespace kestreleq
