#pragma once

#include "ui_pro/primitives/PixelGrid.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace quillon::ui_pro::primitives
{

/** Whether images are drawn by the graphics processor, out of memory of its own. The framework's own renderer, the only
    one on Linux, does not. */
bool drawsWithGraphicsProcessor (juce::Graphics& g);

/** Keeps the part of a component's picture that only its size decides as an image in the pixels of the screen, and
    draws that instead. The image lies on whole screen pixels, so it is as crisp as the drawing would be; it is of the
    renderer's own kind, which draws it from where it lies, and it is given up when the component no longer shows.
    Message thread. */
class CachedLayer
{
public:
    enum class Picture
    {
        transparent,
        opaque,  // covers the component's whole area: copied instead of blended, in a fraction of the time
        covering // covers also what lies around it, and so the screen pixels that belong to it only in part
    };

    explicit CachedLayer (Picture pictureToKeep = Picture::transparent);
    ~CachedLayer();

    /** Replaces what the picture covers. */
    void setPicture (Picture newPicture);

    /** Draws the picture of a component's whole area, which `paint` makes in the component's coordinates; it is called
        only when the size, the scale or the place on the pixel grid has changed, or after `invalidate`. */
    void draw (juce::Graphics& g, juce::Component& component, const std::function<void (juce::Graphics&)>& paint);

    /** For when something else that the picture shows has changed. */
    void invalidate() { keep ({}); }

    /** What the images of all layers take of the renderer's memory, in bytes: four a pixel. */
    static std::size_t getBytesOfAll();

private:
    class Watch;

    void render (const std::function<void (juce::Graphics&)>& paint);
    bool needsNoAlpha() const;
    void keep (const juce::Image& newImage);

    Picture picture;
    juce::Image image;
    juce::Rectangle<int> bounds; // of the component, in its own coordinates
    PixelGrid grid;
    std::unique_ptr<Watch> watch; // over the component, once it was drawn

    JUCE_DECLARE_NON_COPYABLE (CachedLayer)
};

} // namespace quillon::ui_pro::primitives
