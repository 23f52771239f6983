#include "ui_pro/primitives/RootBackground.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/primitives/SurfaceTexture.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::primitives
{
namespace
{

void paintBackground (juce::Graphics& g, juce::Rectangle<float> r)
{
    const auto& theme = style::Theme::get();
    const auto& palette = theme.palette();

    auto gradient =
        juce::ColourGradient::vertical (palette.backgroundTop, r.getY(), palette.backgroundBottom, r.getBottom());
    gradient.addColour (0.55, palette.backgroundMid);
    g.setGradientFill (gradient);
    g.fillRect (r);

    const auto centre = r.getCentre();
    const auto lift = 0.18f * r.getHeight();
    juce::ColourGradient glow (palette.backgroundGlow.withAlpha (0.14f), centre.translated (0.0f, -lift),
        palette.backgroundGlow.withAlpha (0.0f), centre.translated (0.48f * r.getWidth(), lift), true);
    glow.addColour (0.38, palette.backgroundGlow.withAlpha (0.055f));
    glow.addColour (0.72, palette.backgroundGlow.withAlpha (0.0f));
    g.setGradientFill (glow);
    g.fillRect (r);

    drawSurfaceTexture (g, r, 0.018f);
    drawVignette (g, r, theme.panelCornerRadius);

    g.setColour (palette.outline);
    g.drawRoundedRectangle (r, theme.panelCornerRadius, 1.0f);
}

} // namespace

RootBackground::RootBackground()
{
    setInterceptsMouseClicks (false, false);
    setOpaque (true);
}

void RootBackground::paint (juce::Graphics& g)
{
    // To the graphics processor the clip is dearer than the pixels.
    if (! drawsWithGraphicsProcessor (g))
        for (const auto& area : covered)
            g.excludeClipRegion (area);

    layer.draw (g, *this,
        [this] (juce::Graphics& picture)
        {
            picture.fillAll (juce::Colours::black); // the window's own corners, outside the rounded outline
            paintBackground (picture, getLocalBounds().toFloat().reduced (0.5f));
        });
}

} // namespace quillon::ui_pro::primitives
