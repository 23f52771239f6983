#include "ui_pro/primitives/CachedLayer.h"

#include <cmath>

namespace quillon::ui_pro::primitives
{

void CachedLayer::draw (
    juce::Graphics& g, const juce::Component& component, const std::function<void (juce::Graphics&)>& paint)
{
    const auto area = component.getLocalBounds();

    if (area.isEmpty())
        return;

    const auto newGrid = PixelGrid::of (g, component);

    if (image.isNull() || area != bounds || newGrid != grid)
    {
        bounds = area;
        grid = newGrid;

        const auto pixels = [this] (int length, float offset)
        { return static_cast<int> (std::ceil (static_cast<float> (length) * grid.scale + offset)); };
        image = juce::Image (needsNoAlpha() ? juce::Image::RGB : juce::Image::ARGB,
            pixels (area.getWidth(), grid.phase.getX()), pixels (area.getHeight(), grid.phase.getY()), true,
            juce::SoftwareImageType());

        juce::Graphics layer (image);
        layer.addTransform (juce::AffineTransform::scale (grid.scale).translated (grid.phase));
        paint (layer);
    }

    g.setOpacity (1.0f);
    g.drawImageTransformed (image, juce::AffineTransform::translation (-grid.phase).scaled (1.0f / grid.scale));
}

bool CachedLayer::needsNoAlpha() const
{
    const auto isWhole = [this] (int length)
    {
        const auto exact = static_cast<float> (length) * grid.scale;
        return std::round (exact) == exact;
    };
    return picture == Picture::covering ||
        (picture == Picture::opaque && grid.phase.isOrigin() && isWhole (bounds.getWidth()) &&
            isWhole (bounds.getHeight()));
}

} // namespace quillon::ui_pro::primitives
