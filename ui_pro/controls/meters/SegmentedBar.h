#pragma once

#include "ui_pro/primitives/PixelGrid.h"

namespace quillon::ui_pro::controls
{

/** The geometry and the drawing of a bar of equal segments that light up from one end. Drawn edges lie on pixels of the
    screen, up to half a pixel from where they belong, unless a segment has fewer than three. */
class SegmentedBar
{
public:
    enum class Growth
    {
        up,
        down,
        right
    };

    /** Segments of more than `gapFromPitch` pixels leave one pixel free to the next. */
    SegmentedBar (int numSegments, float gapFromPitch, Growth direction);

    void setBounds (juce::Rectangle<float> newBounds) { bounds = newBounds; }

    juce::Rectangle<float> getBounds() const { return bounds; }

    int size() const { return count; }

    /** Segment 0 lies at the end from which the bar grows. */
    juce::Rectangle<float> getSegment (int index) const;

    /** What must be painted again when the number of lit segments goes from one to the other. */
    juce::Rectangle<int> getChangedArea (int litBefore, int litNow) const;

    void paintUnlit (juce::Graphics& g, const primitives::PixelGrid& pixels) const;

    /** Lights the first segments, in one colour. */
    void paintLit (juce::Graphics& g, int lit, juce::Colour colour, const primitives::PixelGrid& pixels) const;

    /** Lights the first segments of a level bar: the bar's own colour, yellow from 0 dB and red from +6 dB. */
    void paintLevel (juce::Graphics& g, int lit, juce::Colour ownColour, const primitives::PixelGrid& pixels) const;

private:
    float getPitch() const;
    juce::Rectangle<float> getDrawn (int index, const primitives::PixelGrid& pixels) const;
    void paintRange (juce::Graphics& g, int first, int end, juce::Colour colour, bool lit,
        const primitives::PixelGrid& pixels) const;
    int firstSegmentFrom (float db) const;

    int count;
    float pitchWithGap;
    Growth growth;
    juce::Rectangle<float> bounds;
};

} // namespace quillon::ui_pro::controls
