#include "ui_pro/primitives/SurfaceTexture.h"

#include <cmath>
#include <cstdlib>

namespace quillon::ui_pro::primitives
{
namespace
{

constexpr int tileSize = 128;

/** Triangular noise: white dots above the middle, black ones below, most of them faint. */
juce::Image makeTile()
{
    juce::Image tile (juce::Image::ARGB, tileSize, tileSize, true, juce::SoftwareImageType());
    const juce::Image::BitmapData pixels (tile, juce::Image::BitmapData::writeOnly);
    juce::Random random (0x5eed);

    for (int y = 0; y < tileSize; ++y)
    {
        for (int x = 0; x < tileSize; ++x)
        {
            const auto level = random.nextFloat() - random.nextFloat();
            const auto colour = level > 0.0f ? juce::Colours::white : juce::Colours::black;
            pixels.setPixelColour (x, y, colour.withAlpha (std::abs (level)));
        }
    }

    return tile;
}

} // namespace

void drawSurfaceTexture (juce::Graphics& g, juce::Rectangle<float> r, float strength)
{
    static const juce::Image tile = makeTile();
    g.setTiledImageFill (tile, 0, 0, strength);
    g.fillRect (r);
}

} // namespace quillon::ui_pro::primitives
