#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** Where the header's tools stand, measured from the canvas. */
struct HeaderSlots
{
    int height = 68;

    juce::Rectangle<int> presetSelector { 1108, 18, 286, 32 };
    juce::Rectangle<int> undoRedo { 1406, 18, 78, 32 };
    juce::Rectangle<int> abCompare { 1498, 18, 70, 32 };
    juce::Rectangle<int> menu { 1620, 18, 38, 32 };
    juce::Rectangle<int> spare { 1024, 18, 72, 32 };
    juce::Rectangle<int> copyPaste { 1572, 18, 40, 32 };
    juce::Rectangle<int> badge { 1086, 30, 56, 24 };
};

/** The footer strip on the library's own canvas, and its slots: x from the canvas's left edge, y from the strip's top.
 */
struct FooterSlots
{
    juce::Rectangle<int> strip { 12, 883, 1648, 56 };
    int inset = 6;
    int rightInset = 12;
    int labelOffset = 13;

    juce::Rectangle<int> oversampling { 12, 6, 104, 44 };
    juce::Rectangle<int> latency { 124, 6, 80, 44 };
    juce::Rectangle<int> sampleRate { 212, 6, 100, 44 };
    juce::Rectangle<int> inputMeters { 320, 4, 505, 48 };
    juce::Rectangle<int> outputMeters { 845, 4, 505, 48 };
    juce::Rectangle<int> outputMode { 1370, 6, 130, 44 };
    juce::Rectangle<int> cpuUsage { 1510, 6, 72, 44 };
    juce::Rectangle<int> label { 1592, 6, 68, 44 };
};

} // namespace quillon::ui_pro::style
