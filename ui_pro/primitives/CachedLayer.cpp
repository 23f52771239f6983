#include "ui_pro/primitives/CachedLayer.h"

#include <cmath>

namespace quillon::ui_pro::primitives
{
namespace
{

/** Where the component's corner lies within a pixel of the screen, in pixels, 0 to 1. */
juce::Point<float> phaseOf (const juce::Component& component, float scale)
{
    const auto* window = component.getTopLevelComponent();
    const auto corner = window->getLocalPoint (&component, juce::Point<float>());
    const auto unit = window->getLocalPoint (&component, juce::Point<float> (1.0f, 0.0f)).getX() - corner.getX();

    if (unit <= 0.0f)
        return {};

    // A hundredth of a pixel is not seen, and keeps rounding noise from making new images.
    const auto fraction = [&] (float position)
    {
        const auto pixels = std::round (position * scale / unit * 100.0f) / 100.0f;
        return pixels - std::floor (pixels);
    };
    return { fraction (corner.getX()), fraction (corner.getY()) };
}

} // namespace

void CachedLayer::draw (
    juce::Graphics& g, const juce::Component& component, const std::function<void (juce::Graphics&)>& paint)
{
    const auto area = component.getLocalBounds();

    if (area.isEmpty())
        return;

    const auto newScale = g.getInternalContext().getPhysicalPixelScaleFactor();
    const auto newPhase = phaseOf (component, newScale);

    if (image.isNull() || area != bounds || newScale != scale || newPhase != phase)
    {
        bounds = area;
        scale = newScale;
        phase = newPhase;

        const auto pixels = [this] (int length, float offset)
        { return static_cast<int> (std::ceil (static_cast<float> (length) * scale + offset)); };
        // An opaque picture is copied rather than blended; a pixel that it covers in part needs its alpha.
        const auto isWhole = [this] (int length)
        {
            const auto exact = static_cast<float> (length) * scale;
            return std::round (exact) == exact;
        };
        const auto noAlpha = opaque && phase.isOrigin() && isWhole (area.getWidth()) && isWhole (area.getHeight());
        image = juce::Image (noAlpha ? juce::Image::RGB : juce::Image::ARGB, pixels (area.getWidth(), phase.getX()),
            pixels (area.getHeight(), phase.getY()), true, juce::SoftwareImageType());

        juce::Graphics layer (image);
        layer.addTransform (juce::AffineTransform::scale (scale).translated (phase));
        paint (layer);
    }

    g.setOpacity (1.0f);
    g.drawImageTransformed (image, juce::AffineTransform::translation (-phase).scaled (1.0f / scale));
}

} // namespace quillon::ui_pro::primitives
