#include "ui_pro/controls/panels/LaneStackPanel.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int laneGutter = 8;
constexpr int lanePadding = 14;
constexpr int controlHeight = 30;
constexpr int controlWidth = 112;

} // namespace

LaneStackPanel::Strip::Strip (juce::Colour primary, int number)
    : mode (primary),
      enabled (primary)
{
    const auto lane = "Lane " + juce::String (number);
    mode.setTitle (lane + " channel mode");
    enabled.setTitle (lane + " enabled");
    enabled.setButtonText ("ENABLED");

    for (auto* child : std::initializer_list<juce::Component*> { &surface, &mode, &enabled })
        addAndMakeVisible (child);
}

void LaneStackPanel::Strip::resized()
{
    surface.setBounds (getLocalBounds());
    auto row = getLocalBounds().reduced (lanePadding).removeFromTop (controlHeight);
    mode.setBounds (row.removeFromLeft (controlWidth));
    row.removeFromLeft (laneGutter);
    enabled.setBounds (row.removeFromLeft (controlWidth));
}

LaneStackPanel::LaneStackPanel (juce::Colour primary, int numLanes)
{
    for (int lane = 0; lane < numLanes; ++lane)
    {
        strips.push_back (std::make_unique<Strip> (primary, lane + 1));
        addAndMakeVisible (*strips.back());
    }
}

void LaneStackPanel::resized()
{
    if (strips.empty())
        return;

    const auto count = getNumLanes();
    const auto height = std::max (getHeight() - (count - 1) * laneGutter, 0) / count;

    for (int lane = 0; lane < count; ++lane)
        strips[static_cast<std::size_t> (lane)]->setBounds (0, lane * (height + laneGutter), getWidth(), height);
}

} // namespace quillon::ui_pro::controls
