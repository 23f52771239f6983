#include "editor/KestrelEditor.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace
{

using namespace kestreleq;

constexpr int blocksPerTick = 5; // of 512 samples at 48 kHz: about 50 ms

/** Collects what has to be painted again, as a window would. */
struct DirtyRegion final : juce::CachedComponentImage
{
    explicit DirtyRegion (juce::Component& component)
        : owner (component)
    {
    }

    void paint (juce::Graphics&) override {}

    bool invalidateAll() override
    {
        region = owner.getLocalBounds();
        return false;
    }

    bool invalidate (const juce::Rectangle<int>& area) override
    {
        region.add (area);
        return false;
    }

    void releaseResources() override {}

    juce::Component& owner;
    juce::RectangleList<int> region;
};

/** An editor of some width over a processor that may play. */
struct Scene
{
    Scene (int width, bool linked)
        : noise { test::musicalMix (1, 48000.0, 96000), test::musicalMix (2, 48000.0, 96000) },
          picture (juce::Image::ARGB, width, width * 858 / 1672, true, juce::SoftwareImageType())
    {
        rig.set ("link", linked ? 1.0f : 0.0f);
        rig.set ("650hz", 0.7f);
        editor = std::make_unique<KestrelEditor> (rig.processor);
        editor->setClock ([this] { return now; });
        editor->setVisible (true);
        editor->setSize (width, width * 858 / 1672);
        watch();
        dirty->region.add (editor->getLocalBounds());
        paint();
    }

    void watch()
    {
        dirty = new DirtyRegion (*editor);
        editor->setCachedComponentImage (dirty);
        dirty->region.clear(); // the change itself asked for everything
    }

    void play()
    {
        for (int block = 0; block < blocksPerTick; ++block)
        {
            position = (position + 512) % (96000 - 512);
            std::copy_n (noise[0].begin() + position, 512, buffer.getWritePointer (0));
            std::copy_n (noise[1].begin() + position, 512, buffer.getWritePointer (1));
            rig.processor.processBlock (buffer, rig.midi);
        }
    }

    void tick()
    {
        now += 50.0;
        editor->tick();
    }

    /** Paints what has been invalidated, in the software renderer. */
    void paint()
    {
        auto region = dirty->region;

        if (region.isEmpty())
            return;

        editor->setCachedComponentImage (nullptr);
        juce::Graphics g (picture);
        g.reduceClipRegion (region);
        editor->paintEntireComponent (g, true);
        watch();
    }

    const juce::ScopedJuceInitialiser_GUI framework;
    test::ProcessorRig rig;
    test::Stereo noise;
    juce::AudioBuffer<float> buffer { 2, 512 };
    int position = 0;
    double now = 1000.0; // ms
    std::unique_ptr<KestrelEditor> editor;
    DirtyRegion* dirty = nullptr; // the editor's
    juce::Image picture;
};

/** One tick with audio playing: the editor's own work and the painting, not the audio. Width in pixels, linked. */
void editorTick (benchmark::State& state)
{
    Scene scene (static_cast<int> (state.range (0)), state.range (1) != 0);
    double pixels = 0.0;

    for (auto _ : state)
    {
        state.PauseTiming();
        scene.play();
        state.ResumeTiming();
        scene.tick();

        for (const auto& area : scene.dirty->region)
            pixels += area.getWidth() * area.getHeight();

        scene.paint();
    }

    state.counters["pixels"] = benchmark::Counter (pixels, benchmark::Counter::kAvgIterations);
}

/** One tick of ten linked editors in their smallest size, all playing; "core" is the part of one core that they take.
 */
void tenEditorsTick (benchmark::State& state)
{
    std::vector<std::unique_ptr<Scene>> scenes;

    for (int i = 0; i < 10; ++i)
        scenes.push_back (std::make_unique<Scene> (836, true));

    for (auto _ : state)
    {
        state.PauseTiming();
        for (auto& scene : scenes)
            scene->play();
        state.ResumeTiming();

        for (auto& scene : scenes)
        {
            scene->tick();
            scene->paint();
        }
    }
}

/** One tick with nothing new to show. */
void editorIdleTick (benchmark::State& state)
{
    Scene scene (836, true);
    std::int64_t painted = 0;

    for (auto _ : state)
    {
        scene.tick();
        painted += scene.dirty->region.isEmpty() ? 0 : 1;
        scene.paint();
    }

    state.counters["painted"] = static_cast<double> (painted);
}

/** One frame of the support sheet's slide, in and out again. Width in pixels. */
void sheetFrame (benchmark::State& state)
{
    Scene scene (static_cast<int> (state.range (0)), true);
    auto& overlay = scene.editor->getOverlay();

    for (auto _ : state)
    {
        if (! overlay.isAnimating())
            overlay.getProgress() > 0.0f ? overlay.close() : scene.editor->openSupport();

        scene.now += 1000.0 / 60.0;
        overlay.advance();
        scene.paint();
    }
}

/** An instance's first window, from nothing to the first picture, while another instance's editor is open. */
void editorOpening (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI framework;
    Scene other (836, true);
    juce::Image picture (juce::Image::ARGB, 836, 429, true, juce::SoftwareImageType());

    for (auto _ : state)
    {
        state.PauseTiming();
        auto rig = std::make_unique<test::ProcessorRig>();
        state.ResumeTiming();
        {
            KestrelEditor editor (rig->processor);
            juce::Graphics g (picture);
            editor.paintEntireComponent (g, true);
        }
        state.PauseTiming();
        rig = nullptr;
        state.ResumeTiming();
    }
}

BENCHMARK (editorTick)
    ->ArgNames ({ "width", "linked" })
    ->ArgsProduct ({ { 836, 1672, 3344 }, { 1, 0 } })
    ->Unit (benchmark::kMillisecond);
BENCHMARK (tenEditorsTick)->Unit (benchmark::kMillisecond);
BENCHMARK (editorIdleTick)->Unit (benchmark::kMicrosecond);
BENCHMARK (sheetFrame)->ArgName ("width")->Arg (836)->Arg (1672)->Unit (benchmark::kMillisecond);
BENCHMARK (editorOpening)->Unit (benchmark::kMillisecond);

} // namespace
