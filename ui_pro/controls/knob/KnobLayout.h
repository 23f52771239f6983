#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::controls
{

/** Where a knob's three parts stand; a part that is not shown is empty. */
struct KnobLayout
{
    juce::Rectangle<int> label;
    juce::Rectangle<int> knob;
    juce::Rectangle<int> value;
};

/** What decides a knob's layout besides its bounds. Lengths in design pixels, not negative. */
struct KnobLayoutOptions
{
    bool stacked = true; // else compact: the value text stands to the right of the knob
    bool showLabel = true;
    bool showValue = true;
    int labelHeight = 0;
    int labelGap = 0;
    int valueGap = 0;
    int maxDiameter = 1; // of a stacked knob
};

KnobLayout layOutKnob (juce::Rectangle<int> bounds, const KnobLayoutOptions& options);

} // namespace quillon::ui_pro::controls
