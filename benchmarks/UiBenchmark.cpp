#include "ui_pro/controls/knob/KnobControl.h"

#include <benchmark/benchmark.h>

namespace
{

using quillon::ui_pro::controls::KnobControl;

/** A knob of a lane after one change of its value: the software renderer at scale 1, clipped as the framework clips. */
void knobRepaint (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI framework;
    KnobControl knob;
    knob.setSize (118, 128);
    knob.setMaxDiameter (58);
    juce::Image picture (juce::Image::ARGB, 118, 128, true, juce::SoftwareImageType());
    int step = 0;

    for (auto _ : state)
    {
        step = (step + 37) % 101;
        knob.setValue (static_cast<float> (step) / 100.0f);
        juce::Graphics g (picture);
        g.reduceClipRegion (knob.getKnobBounds().getUnion (knob.getValueBounds()));
        knob.paintEntireComponent (g, true);
    }
}

BENCHMARK (knobRepaint)->Unit (benchmark::kMicrosecond);

} // namespace
