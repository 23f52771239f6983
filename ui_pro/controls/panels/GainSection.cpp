#include "ui_pro/controls/panels/GainSection.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int gainHeadingHeight = 24;
constexpr int gainSwitchHeight = 28;
constexpr int gainGap = 6;
constexpr int linkWidth = 68;
constexpr int linkHeight = 24;
constexpr int linkGap = 4;
constexpr int largestKnob = 58;

} // namespace

GainSection::GainSection (const juce::String& title, juce::Colour accent)
    : heading (title),
      link (accent),
      autoGain (accent)
{
    setTitle (title);
    link.setButtonText ("LINK");
    link.setTitle (title + " LINK");
    link.setTooltip ("Both gains move together.");
    autoGain.setTooltip ("Ride the level of both channels toward -18 dB RMS; the gains then have no effect.");
    autoGain.setButtonText ("AUTO GAIN");
    autoGain.setTitle (title + " AUTO GAIN");

    int number = 0;

    for (auto* knob : { &gain1, &gain2 })
    {
        knob->setLabel ("GAIN");
        knob->setTitle (title + " GAIN " + juce::String (++number));
        knob->setTooltip ("Drag up or down; a double-click sets the default.");
        knob->setAccent (accent);
        knob->setMaxDiameter (largestKnob);
        knob->setLabelGap (2);
        knob->setValueGap (2);
    }

    for (auto* child : std::initializer_list<juce::Component*> { &heading, &gain1, &link, &gain2, &autoGain })
        addAndMakeVisible (child);
}

void GainSection::resized()
{
    auto area = getLocalBounds();
    heading.setBounds (area.removeFromTop (gainHeadingHeight));
    autoGain.setBounds (area.removeFromBottom (gainSwitchHeight));
    area.removeFromBottom (gainGap);

    const auto knobWidth = std::max ((area.getWidth() - linkWidth - 2 * linkGap) / 2, 0);
    gain1.setBounds (area.removeFromLeft (knobWidth));
    gain2.setBounds (area.removeFromRight (knobWidth));

    // The link joins the knobs' faces, so it stands at the height of their centres.
    const auto height = gain1.getY() + gain1.getKnobBounds().getCentreY();
    link.setBounds (area.withHeight (linkHeight).withY (height - linkHeight / 2).reduced (linkGap, 0));
}

} // namespace quillon::ui_pro::controls
