#include "ui_pro/controls/knob/KnobFace.h"

#include "ui_pro/primitives/ButtonLook.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float glowWidths[] { 4.0f, 2.0f }; // wider than the arc, the widest first
constexpr float glowAlphas[] { 0.11f, 0.22f };
constexpr float smallestFace = 6.0f; // below, there is room for a dot only

/** The radii and widths that follow from the diameter. */
struct Proportions
{
    explicit Proportions (juce::Rectangle<float> r)
        : centre (r.getCentre())
    {
        const auto diameter = std::min (r.getWidth(), r.getHeight());
        arcWidth = std::clamp (0.06f * diameter, 1.0f, 3.5f);
        trackWidth = 0.6f * arcWidth;
        arcRadius = std::max (0.5f * (diameter - arcWidth - glowWidths[0]), 0.25f * diameter);
        bodyRadius = std::max (arcRadius - arcWidth - 0.04f * diameter, 1.0f);
    }

    juce::Point<float> centre;
    float arcWidth;
    float trackWidth;
    float arcRadius;
    float bodyRadius;
};

/** Adds an arc around a centre as few cubic curves, from the path's last point on. */
void addArc (juce::Path& path, juce::Point<float> centre, float radius, float from, float to)
{
    constexpr auto longest = 0.25f * juce::MathConstants<float>::pi;
    const auto pieces = std::max (1, static_cast<int> (std::ceil (std::abs (to - from) / longest)));
    const auto step = (to - from) / static_cast<float> (pieces);
    const auto handle = 4.0f / 3.0f * std::tan (0.25f * step) * radius;
    const auto along = [] (juce::Point<float> point, float angle, float length)
    { return point.translated (length * std::cos (angle), length * std::sin (angle)); };

    for (int i = 0; i < pieces; ++i)
    {
        const auto a = from + static_cast<float> (i) * step;
        const auto b = a + step;
        const auto start = centre.getPointOnCircumference (radius, a);
        const auto end = centre.getPointOnCircumference (radius, b);
        path.cubicTo (along (start, a, handle), along (end, b, -handle), end);
    }
}

/** Fills an arc with round ends. Its outline is written down at once, which costs a tenth of stroking a line. */
void fillArc (juce::Graphics& g, juce::Point<float> centre, float radius, float width, float from, float to)
{
    constexpr auto pi = juce::MathConstants<float>::pi;
    const auto outer = radius + 0.5f * width;
    const auto inner = radius - 0.5f * width;

    juce::Path outline;
    outline.startNewSubPath (centre.getPointOnCircumference (outer, from));
    addArc (outline, centre, outer, from, to);
    addArc (outline, centre.getPointOnCircumference (radius, to), 0.5f * width, to, to + pi);
    addArc (outline, centre, inner, to, from);
    addArc (outline, centre.getPointOnCircumference (radius, from), 0.5f * width, from + pi, from + 2.0f * pi);
    outline.closeSubPath();
    g.fillPath (outline);
}

juce::Rectangle<float> circle (juce::Point<float> centre, float radius)
{
    return juce::Rectangle<float> (2.0f * radius, 2.0f * radius).withCentre (centre);
}

void paintDot (juce::Graphics& g, juce::Rectangle<float> r, juce::Colour colour)
{
    g.setColour (colour);
    g.fillEllipse (r);
}

} // namespace

void paintKnobBody (juce::Graphics& g, juce::Rectangle<float> r, bool enabled)
{
    if (std::min (r.getWidth(), r.getHeight()) < smallestFace)
        return;

    const auto& tokens = style::Theme::get().knob;
    const Proportions size (r);
    g.setColour (enabled ? tokens.track : tokens.trackDisabled);
    fillArc (g, size.centre, size.arcRadius, size.trackWidth, knobStartAngle, knobStartAngle + knobSweep);

    // A soft shadow below lifts the body off the panel.
    const auto shadowCentre = size.centre.translated (0.0f, 0.09f * size.bodyRadius);
    const auto shadowRadius = 1.1f * size.bodyRadius;
    juce::ColourGradient shadow (juce::Colours::black.withAlpha (0.6f), shadowCentre, juce::Colours::transparentBlack,
        shadowCentre.translated (shadowRadius, 0.0f), true);
    shadow.addColour (0.82, juce::Colours::black.withAlpha (0.45f));
    g.setGradientFill (shadow);
    g.fillEllipse (circle (shadowCentre, shadowRadius));

    const auto body = circle (size.centre, size.bodyRadius);
    const auto dim = [enabled] (juce::Colour colour) { return enabled ? colour : colour.darker (0.45f); };
    g.setGradientFill (
        juce::ColourGradient::vertical (dim (tokens.bodyTop), body.getY(), dim (tokens.bodyBottom), body.getBottom()));
    g.fillEllipse (body);

    const auto cap = circle (size.centre, 0.8f * size.bodyRadius);
    g.setGradientFill (juce::ColourGradient::vertical (dim (tokens.bodyBottom.brighter (0.06f)), cap.getY(),
        dim (tokens.bodyBottom.brighter (0.19f)), cap.getBottom()));
    g.fillEllipse (cap);

    const auto light = juce::Colours::white;
    g.setGradientFill (juce::ColourGradient::vertical (
        light.withAlpha (enabled ? 0.22f : 0.08f), body.getY(), light.withAlpha (0.02f), body.getBottom()));
    g.drawEllipse (body.reduced (0.5f), 1.0f);
}

void paintKnobValue (juce::Graphics& g, juce::Rectangle<float> r, const KnobLook& look)
{
    const auto& palette = style::Theme::palette();
    const auto accent = look.enabled ? look.accent : primitives::disabledAccent (look.accent);

    if (std::min (r.getWidth(), r.getHeight()) < smallestFace)
    {
        paintDot (g, r, accent);
        return;
    }

    const Proportions size (r);
    const auto angle = knobStartAngle + look.value * knobSweep;

    if (look.value > 0.0f)
    {
        if (look.enabled)
        {
            for (int i = 0; i < 2; ++i)
            {
                g.setColour (accent.withAlpha (look.highlighted ? 1.5f * glowAlphas[i] : glowAlphas[i]));
                fillArc (g, size.centre, size.arcRadius, size.arcWidth + glowWidths[i], knobStartAngle, angle);
            }
        }

        g.setColour (accent);
        fillArc (g, size.centre, size.arcRadius, size.arcWidth, knobStartAngle, angle);
    }

    if (look.highlighted && look.enabled)
    {
        g.setColour (palette.textBright.withAlpha (0.45f));
        g.drawEllipse (circle (size.centre, size.bodyRadius).reduced (0.5f), 1.0f);
    }

    const auto width = std::clamp (0.05f * r.getWidth(), 1.0f, 3.0f);
    const auto length = 0.5f * size.bodyRadius;
    juce::Path pointer;
    pointer.addRoundedRectangle (-0.5f * width, -0.93f * size.bodyRadius, width, length, 0.5f * width);
    g.setColour (look.enabled ? palette.textPrimary : palette.textMuted);
    g.fillPath (pointer, juce::AffineTransform::rotation (angle).translated (size.centre));
}

} // namespace quillon::ui_pro::controls
