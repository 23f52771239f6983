#pragma once

#include <juce_graphics/juce_graphics.h>

#include <array>

namespace kestreleq
{

/** Where everything stands. All of it in design pixels of the canvas, except for ContentPlacement. */
namespace layout
{

inline constexpr int designWidth = 1672;
inline constexpr int designHeight = 858;
inline constexpr int knobsPerLane = 7;

/** How the canvas lies in a window, which counts its own pixels. */
struct ContentPlacement
{
    float scale = 1.0f;
    juce::Rectangle<int> bounds;

    juce::AffineTransform transform() const;
};

/** The largest canvas that the window takes, centred. */
ContentPlacement placeContent (int windowWidth, int windowHeight);

/** The window's scale is kept as a step: 0 is half the design's size, 30 twice. The nearest to a scale. */
int stepOfScale (float scale);

/** How large a window opens: as its step says (below 0: none was kept), or less where that would not fit with its title
   bar into the display's user area, whose size is in the window's pixels; an empty area counts for nothing. */
juce::Rectangle<int> openingSize (int step, juce::Rectangle<int> userArea);

struct Lane
{
    juce::Rectangle<int> panel;
    bool tall = false;
    juce::Rectangle<int> chart;
    juce::Rectangle<int> meterStrip;
    juce::Rectangle<int> powerButton;
    juce::Rectangle<int> title;
    std::array<juce::Rectangle<int>, knobsPerLane> knobs;
};

/** Lane A (0) takes both places while the lanes are linked; lane B (1) has one place, shown or not. */
Lane placeLane (std::size_t lane, bool linked);

struct Footer
{
    juce::Rectangle<int> bar; // everything else is measured from the canvas, not from the bar
    juce::Rectangle<int> oversampling;
    juce::Rectangle<int> latency;
    juce::Rectangle<int> sampleRate;
    juce::Rectangle<int> inputMeters;
    juce::Rectangle<int> outputMeters;
    juce::Rectangle<int> outputMode;
    juce::Rectangle<int> cpuUsage;
    juce::Rectangle<int> label;
};

Footer placeFooter();

inline juce::Rectangle<int> sidePanel()
{
    return { 1388, 78, 272, 704 };
}

} // namespace layout
} // namespace kestreleq
