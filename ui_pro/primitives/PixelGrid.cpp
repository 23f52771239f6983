#include "ui_pro/primitives/PixelGrid.h"

#include <cmath>

namespace quillon::ui_pro::primitives
{

PixelGrid PixelGrid::of (juce::Graphics& g)
{
    return { g.getInternalContext().getPhysicalPixelScaleFactor(), {} };
}

PixelGrid PixelGrid::of (juce::Graphics& g, const juce::Component& component)
{
    auto grid = of (g);
    const auto* const window = component.getTopLevelComponent();
    const auto corner = window->getLocalPoint (&component, juce::Point<float>());
    const auto unit = window->getLocalPoint (&component, juce::Point<float> (1.0f, 0.0f)).getX() - corner.getX();

    if (unit <= 0.0f)
        return grid;

    // A hundredth of a pixel is not seen, and would only be rounding noise.
    const auto fraction = [&] (float position)
    {
        const auto place = std::round (position * grid.scale / unit * 100.0f) / 100.0f;
        return place - std::floor (place);
    };
    grid.phase = { fraction (corner.getX()), fraction (corner.getY()) };
    return grid;
}

} // namespace quillon::ui_pro::primitives
