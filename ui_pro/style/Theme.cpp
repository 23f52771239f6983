#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillon::ui_pro::style
{
namespace
{

constexpr std::array<juce::uint32, 31> accents {
    0xfff67f2d,                                                 // the brand accent
    0xffe8b51b, 0xffb8e620, 0xff4cd964, 0xff22d68a, 0xff20c7d8, // 1 to 5
    0xff3e87f5, 0xff7d82ff, 0xffb26dff, 0xffe674ff, 0xffff78c9, // 6 to 10
    0xffff858c, 0xffff7668, 0xffff704f, 0xfffb783e, 0xfff67f2d, // 11 to 15
    0xfff67f2d, 0xffe8b51b, 0xffb8e620, 0xff4cd964, 0xff22d68a, // 16 to 20
    0xff20c7d8, 0xff3e87f5, 0xff7d82ff, 0xffb26dff, 0xffe674ff, // 21 to 25
    0xffff78c9, 0xffff858c, 0xffff7668, 0xffe8b51b, 0xffaab2ba, // 26 to 30
};

} // namespace

const Theme& Theme::get()
{
    static const Theme theme;
    return theme;
}

juce::Colour Theme::accentForId (AccentColorRole role)
{
    const auto id = static_cast<int> (role);
    return juce::Colour (
        id > 0 && id < static_cast<int> (accents.size()) ? accents[static_cast<std::size_t> (id)] : accents[0]);
}

float Theme::scaleFor (juce::Rectangle<int> area)
{
    if (area.getWidth() < 1 || area.getHeight() < 1)
        return 1.0f;

    const auto& theme = get();
    return std::min (static_cast<float> (area.getWidth()) / static_cast<float> (theme.designWidth),
        static_cast<float> (area.getHeight()) / static_cast<float> (theme.designHeight));
}

juce::Rectangle<int> Theme::centredDesignBounds (juce::Rectangle<int> area)
{
    const auto scale = scaleFor (area);
    const auto scaled = [scale] (int length)
    { return static_cast<int> (std::nearbyint (static_cast<float> (length) * scale)); };
    const auto width = scaled (get().designWidth);
    const auto height = scaled (get().designHeight);

    return { area.getX() + (area.getWidth() - width) / 2, area.getY() + (area.getHeight() - height) / 2, width,
        height };
}

} // namespace quillon::ui_pro::style
