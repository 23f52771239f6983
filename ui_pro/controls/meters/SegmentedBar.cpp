#include "ui_pro/controls/meters/SegmentedBar.h"

#include "ui_pro/controls/meters/MeterScale.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float yellowFromDb = 0.0f;
constexpr float redFromDb = 6.0f;
constexpr float fewestToSnap = 3.0f; // pixels

} // namespace

SegmentedBar::SegmentedBar (int numSegments, float gapFromPitch, Growth direction)
    : count (numSegments),
      pitchWithGap (gapFromPitch),
      growth (direction)
{
}

float SegmentedBar::getPitch() const
{
    const auto length = growth == Growth::right ? bounds.getWidth() : bounds.getHeight();
    return length / static_cast<float> (count);
}

juce::Rectangle<float> SegmentedBar::getSegment (int index) const
{
    const auto pitch = getPitch();
    const auto start = static_cast<float> (index) * pitch;
    const auto thickness = std::max (pitch > pitchWithGap ? pitch - 1.0f : pitch, 1.0f);

    switch (growth)
    {
        case Growth::up:
            return bounds.withTop (bounds.getBottom() - start - thickness).withHeight (thickness);
        case Growth::down:
            return bounds.withY (bounds.getY() + start).withHeight (thickness);
        case Growth::right:
        default:
            return bounds.withX (bounds.getX() + start).withWidth (thickness);
    }
}

juce::Rectangle<int> SegmentedBar::getChangedArea (int litBefore, int litNow) const
{
    const auto [first, end] = std::minmax (litBefore, litNow);

    if (first == end)
        return {};

    return getSegment (first).getUnion (getSegment (end - 1)).getSmallestIntegerContainer();
}

juce::Rectangle<float> SegmentedBar::getDrawn (int index, const primitives::PixelGrid& pixels) const
{
    const auto segment = getSegment (index);

    // On whole pixels every gap is equally sharp; a segment of fewer would change its thickness by too much.
    if (std::min (segment.getWidth(), segment.getHeight()) < pixels.pixels (fewestToSnap))
        return segment;

    // Below a scale of 1 the gap would round away.
    const auto next = pixels.snap (getSegment (index + 1));
    const auto gap = pixels.pixels (getPitch() > pitchWithGap ? 1.0f : 0.0f);
    const auto drawn = pixels.snap (segment);

    switch (growth)
    {
        case Growth::up:
            return drawn.withTop (std::max (drawn.getY(), next.getBottom() + gap));
        case Growth::down:
            return drawn.withBottom (std::min (drawn.getBottom(), next.getY() - gap));
        case Growth::right:
        default:
            return drawn.withRight (std::min (drawn.getRight(), next.getX() - gap));
    }
}

void SegmentedBar::paintRange (
    juce::Graphics& g, int first, int end, juce::Colour colour, bool lit, const primitives::PixelGrid& pixels) const
{
    const auto& tokens = style::Theme::get().meter;
    const auto clip = g.getClipBounds().toFloat();
    juce::RectangleList<float> segments;
    juce::RectangleList<float> highlights;

    for (int i = first; i < end; ++i)
    {
        auto segment = getDrawn (i, pixels);

        if (! segment.intersects (clip))
            continue;

        segments.addWithoutMerging (segment);
        const auto thickness = growth == Growth::right ? segment.getWidth() : segment.getHeight();
        const auto edge = pixels.wholePixels (std::max (tokens.highlightShare * thickness, 1.0f));
        highlights.addWithoutMerging (growth == Growth::up ? segment.removeFromTop (edge)
                : growth == Growth::down                   ? segment.removeFromBottom (edge)
                                                           : segment.removeFromRight (edge));
    }

    if (segments.isEmpty())
        return;

    g.setColour (colour);
    g.fillRectList (segments);

    if (lit)
    {
        g.setColour (juce::Colours::white.withAlpha (tokens.highlightAlpha));
        g.fillRectList (highlights);
    }
}

void SegmentedBar::paintUnlit (juce::Graphics& g, const primitives::PixelGrid& pixels) const
{
    paintRange (g, 0, count, style::Theme::get().meter.unlit, false, pixels);
}

void SegmentedBar::paintLit (juce::Graphics& g, int lit, juce::Colour colour, const primitives::PixelGrid& pixels) const
{
    paintRange (g, 0, lit, colour, true, pixels);
}

void SegmentedBar::paintLevel (
    juce::Graphics& g, int lit, juce::Colour ownColour, const primitives::PixelGrid& pixels) const
{
    const auto& palette = style::Theme::palette();
    const auto yellow = firstSegmentFrom (yellowFromDb);
    const auto red = firstSegmentFrom (redFromDb);

    paintRange (g, 0, std::min (lit, yellow), ownColour, true, pixels);
    paintRange (g, yellow, std::min (lit, red), palette.yellow, true, pixels);
    paintRange (g, red, lit, palette.red, true, pixels);
}

int SegmentedBar::firstSegmentFrom (float db) const
{
    // A segment stands for the level at its far end.
    const auto levelOf = [this] (int index)
    {
        const auto share = static_cast<float> (index + 1) / static_cast<float> (count);
        return meterFloorDb + share * (meterCeilingDb - meterFloorDb);
    };
    int index = 0;

    while (index < count && levelOf (index) < db)
        ++index;

    return index;
}

} // namespace quillon::ui_pro::controls
