#include "ui_pro/controls/panels/InputOutputPanel.h"

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int sectionPaddingX = 14;
constexpr int sectionPaddingY = 10;
constexpr int sectionGap = 10;

} // namespace

InputOutputPanel::InputOutputPanel (juce::Colour primary, juce::Colour secondary)
    : input ("INPUT", primary),
      output ("OUTPUT", secondary)
{
    addAndMakeVisible (surface);
    addAndMakeVisible (input);
    addAndMakeVisible (output);
}

void InputOutputPanel::resized()
{
    surface.setBounds (getLocalBounds());
    auto area = getLocalBounds().reduced (sectionPaddingX, sectionPaddingY);
    const auto height = (area.getHeight() - sectionGap) / 2;
    input.setBounds (area.removeFromTop (height));
    output.setBounds (area.removeFromBottom (height));
}

} // namespace quillon::ui_pro::controls
