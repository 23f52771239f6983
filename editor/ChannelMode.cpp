#include "editor/ChannelMode.h"

#include "ui_pro/style/Theme.h"

namespace kestreleq
{
namespace
{

using quillon::ui_pro::style::Theme;

} // namespace

ChannelMode::Lane ChannelMode::lookOf (std::size_t lane) const
{
    if (linked && lane == 0)
        return { "STEREO", Theme::accent (0), Theme::accent (16) };

    const auto colour = midSide ? Theme::accent (lane == 0 ? 9 : 12) : Theme::accent (lane == 0 ? 3 : 6);
    const auto* caption = midSide ? (lane == 0 ? "MID" : "SIDE") : (lane == 0 ? "LEFT" : "RIGHT");
    return { caption, colour, colour };
}

std::array<juce::Colour, numLanes> ChannelMode::outputColours() const
{
    if (linked)
        return { Theme::accent (16), Theme::accent (16) };

    return { lookOf (0).colour, lookOf (1).colour };
}

juce::Colour ChannelMode::neutral()
{
    return quillon::ui_pro::style::Theme::get().meter.input;
}

} // namespace kestreleq
