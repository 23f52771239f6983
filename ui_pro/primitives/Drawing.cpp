#include "ui_pro/primitives/Drawing.h"

#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::primitives
{
namespace
{

void clipToRounded (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius)
{
    juce::Path shape;
    shape.addRoundedRectangle (r, cornerRadius);
    g.reduceClipRegion (shape);
}

/** Fills r with a gradient around its centre that reaches 0.55 of the longer side and has a stop at 0.55 of that. */
void fillRadial (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius, juce::Colour centre,
    juce::Colour middle, juce::Colour rim)
{
    if (r.isEmpty())
        return;

    const juce::Graphics::ScopedSaveState saved (g);
    clipToRounded (g, r, cornerRadius);

    const auto reach = 0.55f * std::max (r.getWidth(), r.getHeight());
    juce::ColourGradient gradient (centre, r.getCentre(), rim, r.getCentre().translated (reach, 0.0f), true);
    gradient.addColour (0.55, middle);
    g.setGradientFill (gradient);
    g.fillRect (r);
}

} // namespace

void fillPanel (juce::Graphics& g, juce::Rectangle<float> r, juce::Colour colour, float cornerRadius)
{
    g.setColour (colour);
    g.fillRoundedRectangle (r, cornerRadius);
}

void drawInnerShadow (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius, float strength)
{
    if (r.getWidth() <= 0.0f || r.getHeight() <= 0.0f)
        return;

    const juce::Graphics::ScopedSaveState saved (g);
    clipToRounded (g, r, cornerRadius);

    const auto black = juce::Colours::black;
    const auto clear = juce::Colours::transparentBlack;

    g.setGradientFill (juce::ColourGradient::vertical (
        black.withAlpha (strength), r.getY(), clear, r.getY() + std::min (0.3f * r.getHeight(), 8.0f)));
    g.fillRect (r.withHeight (std::clamp (r.getHeight(), 0.0f, 10.0f)));

    g.setGradientFill (juce::ColourGradient::horizontal (
        black.withAlpha (0.55f * strength), r.getX(), clear, r.getX() + std::min (0.3f * r.getWidth(), 6.0f)));
    g.fillRect (r.withWidth (std::clamp (r.getWidth(), 0.0f, 8.0f)));
}

void drawVignette (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius)
{
    const auto clear = juce::Colours::transparentBlack;
    fillRadial (g, r, cornerRadius, clear, clear, juce::Colours::black.withAlpha (0.22f));
}

void drawSheen (juce::Graphics& g, juce::Rectangle<float> r, float cornerRadius, float centreAlpha, float middleAlpha)
{
    const auto white = juce::Colours::white;
    fillRadial (
        g, r, cornerRadius, white.withAlpha (centreAlpha), white.withAlpha (middleAlpha), white.withAlpha (0.0f));
}

void drawTick (juce::Graphics& g, juce::Point<float> centre)
{
    juce::Path tick;
    tick.startNewSubPath (-5.0f, 0.0f);
    tick.lineTo (-1.5f, 3.5f);
    tick.lineTo (5.0f, -3.5f);
    g.setColour (style::Theme::palette().accent);
    g.strokePath (tick, juce::PathStrokeType (2.0f, juce::PathStrokeType::mitered, juce::PathStrokeType::rounded),
        juce::AffineTransform::translation (centre));
}

} // namespace quillon::ui_pro::primitives
