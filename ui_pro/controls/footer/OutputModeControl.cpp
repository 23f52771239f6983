#include "ui_pro/controls/footer/OutputModeControl.h"

#include <algorithm>
#include <array>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr std::array<const char*, OutputModeControl::numModes> names { "Mono", "Stereo", "Multi" };
constexpr int compactStyle = 0;
constexpr int knobGap = 6;

juce::String textOf (int mode)
{
    return mode >= 0 && mode < OutputModeControl::numModes ? names[static_cast<std::size_t> (mode)] : "-";
}

float positionOf (int mode)
{
    return static_cast<float> (mode) / static_cast<float> (OutputModeControl::numModes - 1);
}

} // namespace

OutputModeControl::OutputModeControl()
    : FooterReadout ("OUT:", textOf (0), style::Theme::get().footer.outputMode)
{
    knob.setLayoutStyle (compactStyle);
    knob.setShowLabel (false);
    knob.setShowValue (false);
    knob.setSteps (numModes);
    knob.setTitle ("Output mode");
    knob.setValue (positionOf (mode));
    knob.setValueText (textOf (mode));
    knob.onValueChange = [this] (float value)
    {
        setMode (juce::roundToInt (value * static_cast<float> (numModes - 1)));

        if (onModeChange != nullptr)
            onModeChange (mode);
    };
    addAndMakeVisible (knob);
    resized();
}

void OutputModeControl::setMode (int newMode)
{
    if (mode == newMode)
        return;

    mode = newMode;
    knob.setValue (positionOf (mode));
    knob.setValueText (textOf (mode));
    showText (textOf (mode));
}

void OutputModeControl::setKnobShown (bool shouldShow)
{
    if (knob.isVisible() == shouldShow)
        return;

    knob.setVisible (shouldShow);
    repaint();
}

void OutputModeControl::resized()
{
    knob.setBounds (getLocalBounds().removeFromLeft (getHeight()));
}

juce::Rectangle<int> OutputModeControl::getTextArea() const
{
    return isKnobShown() ? getLocalBounds().withTrimmedLeft (knob.getRight() + knobGap) : getLocalBounds();
}

} // namespace quillon::ui_pro::controls
