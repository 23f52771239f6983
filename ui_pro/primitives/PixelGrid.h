#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::primitives
{

/** The pixels of the screen as a component's coordinates see them, for lines that lie on them and for letters that stay
    readable at every scale. */
struct PixelGrid
{
    /** For painting a component, directly or into a layer of it. */
    static PixelGrid of (juce::Graphics& g, const juce::Component& component);

    /** For painting with no component at hand: its corner is taken to lie on a pixel's. */
    static PixelGrid of (juce::Graphics& g);

    /** The length of so many pixels. */
    float pixels (float count) const { return count / scale; }

    /** The nearest edge between two pixels. */
    float snapX (float x) const { return snap (x, phase.x); }

    float snapY (float y) const { return snap (y, phase.y); }

    /** A length as whole pixels, at least one. */
    float wholePixels (float length) const { return std::max (std::round (length * scale), 1.0f) / scale; }

    /** The rectangle with all its edges snapped. */
    juce::Rectangle<float> snap (juce::Rectangle<float> r) const
    {
        return juce::Rectangle<float>::leftTopRightBottom (
            snapX (r.getX()), snapY (r.getY()), snapX (r.getRight()), snapY (r.getBottom()));
    }

    /** A text size of which the letters stay readable on the screen. */
    float legible (float textSize) const { return std::max (textSize, pixels (smallestText)); }

    static constexpr float smallestText = 7.5f; // pixels

    float scale = 1.0f;       // screen pixels per design pixel
    juce::Point<float> phase; // of the component's corner within its pixel, in pixels, 0 to 1

    bool operator== (const PixelGrid&) const = default;

private:
    float snap (float position, float offset) const
    {
        return (std::round (position * scale + offset) - offset) / scale;
    }
};

} // namespace quillon::ui_pro::primitives
