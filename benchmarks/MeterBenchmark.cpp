#include "tests/support/RepaintWatch.h"
#include "ui_pro/controls/chart/SpectrumChartComponent.h"
#include "ui_pro/controls/meters/MeterPair.h"
#include "ui_pro/controls/meters/MeterStrip.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace
{

using namespace quillon::ui_pro::controls;
using kestreleq::test::RepaintWatch;

/** Paints what a component has asked for, into a picture in memory at scale 1. */
class Screen
{
public:
    explicit Screen (juce::Component& shown)
        : component (shown),
          picture (juce::Image::ARGB, shown.getWidth(), shown.getHeight(), true, juce::SoftwareImageType())
    {
        paint (component.getLocalBounds());
    }

    void paint (juce::Rectangle<int> area)
    {
        juce::Graphics g (picture);
        g.reduceClipRegion (area);
        component.paintEntireComponent (g, false);
        benchmark::DoNotOptimize (picture);
    }

private:
    juce::Component& component;
    juce::Image picture;
};

/** Calls `change` with one of two states in turn and paints what it asks for. */
template <typename Change>
void repaintAfter (benchmark::State& state, juce::Component& component, Change&& change)
{
    Screen screen (component);
    juce::Rectangle<int> area;
    bool second = false;

    for (auto _ : state)
    {
        // The watch takes the place of the component's painting, so it must be gone before that.
        {
            RepaintWatch watch (component);
            change (second = ! second);
            area = watch.takeArea();
        }
        screen.paint (area);
    }

    state.counters["pixels"] = static_cast<double> (area.getWidth() * area.getHeight());
}

/** The whole range of the bars at once: the most that one update can change. */
void meterStrip (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI framework;
    MeterStrip strip;
    strip.setSize (90, static_cast<int> (state.range (0)));
    double now = 1.0;
    strip.clock = [&now] { return now += 10000.0; };
    repaintAfter (state, strip,
        [&strip] (bool loud)
        {
            const auto level = loud ? 4.0f : 0.0f;
            strip.setLevels (level, level);
        });
}

void meterPair (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI framework;
    MeterPair pair ("IN L", "IN R");
    pair.setSize (360, 44);
    double now = 1.0;
    pair.clock = [&now] { return now += 10000.0; };
    repaintAfter (state, pair,
        [&pair] (bool loud)
        {
            const auto level = loud ? 0.5f : 0.01f;
            pair.setLevels (level, level);
        });
}

void spectrumChart (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI framework;
    std::mt19937 random (1);
    std::vector<float> levels (2 * 512);

    for (auto& level : levels)
        level = -40.0f - 12.0f * static_cast<float> (random()) / 4294967296.0f;

    SpectrumChartComponent chart;
    chart.setSize (1120, 196);
    repaintAfter (state, chart,
        [&] (bool second)
        {
            const auto* const first = levels.data() + (second ? 512 : 0);
            chart.setSnapshot ({ true, 48000.0, 512, 0, [first] (std::uint64_t i) { return first[i]; } });
        });
}

BENCHMARK (meterStrip)->ArgName ("height")->Arg (196)->Arg (537)->Unit (benchmark::kMicrosecond);
BENCHMARK (meterPair)->Unit (benchmark::kMicrosecond);
BENCHMARK (spectrumChart)->Unit (benchmark::kMicrosecond);

} // namespace
