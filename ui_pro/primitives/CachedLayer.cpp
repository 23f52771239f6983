#include "ui_pro/primitives/CachedLayer.h"

#include <cmath>

namespace quillon::ui_pro::primitives
{

namespace
{

std::size_t bytesOfAll = 0;

std::size_t bytesOf (const juce::Image& image)
{
    return 4 * static_cast<std::size_t> (image.getWidth()) * static_cast<std::size_t> (image.getHeight());
}

} // namespace

bool drawsWithGraphicsProcessor (juce::Graphics& g)
{
    return dynamic_cast<juce::LowLevelGraphicsSoftwareRenderer*> (&g.getInternalContext()) == nullptr;
}

/** Gives the image up when the component, or what it lies in, is hidden or leaves its window. */
class CachedLayer::Watch final : public juce::ComponentMovementWatcher
{
public:
    Watch (CachedLayer& ownerOfThis, juce::Component& component)
        : ComponentMovementWatcher (&component),
          owner (ownerOfThis)
    {
    }

private:
    using ComponentMovementWatcher::componentMovedOrResized;
    using ComponentMovementWatcher::componentVisibilityChanged;

    void componentMovedOrResized (bool, bool) override {}

    void componentPeerChanged() override {}

    void componentVisibilityChanged() override
    {
        if (! getComponent()->isShowing())
            owner.invalidate();
    }

    CachedLayer& owner;
};

CachedLayer::CachedLayer (Picture pictureToKeep)
    : picture (pictureToKeep)
{
}

CachedLayer::~CachedLayer()
{
    invalidate();
}

void CachedLayer::setPicture (Picture newPicture)
{
    picture = newPicture;
    invalidate();
}

void CachedLayer::draw (
    juce::Graphics& g, juce::Component& component, const std::function<void (juce::Graphics&)>& paint)
{
    const auto area = component.getLocalBounds();

    if (area.isEmpty())
        return;

    if (watch == nullptr || watch->getComponent() != &component)
        watch = std::make_unique<Watch> (*this, component);

    const auto newGrid = PixelGrid::of (g, component);

    if (image.isNull() || area != bounds || newGrid != grid)
    {
        bounds = area;
        grid = newGrid;
        render (paint);
    }

    // An image of another kind would be converted and handed to the graphics processor at every draw.
    if (drawsWithGraphicsProcessor (g))
        image = juce::NativeImageType().convert (image); // the image itself, once it is of that kind

    g.setOpacity (1.0f);
    g.drawImageTransformed (image, juce::AffineTransform::translation (-grid.phase).scaled (1.0f / grid.scale));
}

void CachedLayer::render (const std::function<void (juce::Graphics&)>& paint)
{
    const auto pixels = [this] (int length, float offset)
    { return static_cast<int> (std::ceil (static_cast<float> (length) * grid.scale + offset)); };
    keep (juce::Image (needsNoAlpha() ? juce::Image::RGB : juce::Image::ARGB,
        pixels (bounds.getWidth(), grid.phase.getX()), pixels (bounds.getHeight(), grid.phase.getY()), true,
        juce::SoftwareImageType()));

    juce::Graphics layer (image);
    layer.addTransform (juce::AffineTransform::scale (grid.scale).translated (grid.phase));
    paint (layer);
}

void CachedLayer::keep (const juce::Image& newImage)
{
    bytesOfAll += bytesOf (newImage) - bytesOf (image);
    image = newImage;
}

std::size_t CachedLayer::getBytesOfAll()
{
    return bytesOfAll;
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
