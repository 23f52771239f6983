#include "tools/kestrel-shot/EditorShot.h"

#include "editor/EditorLayout.h"
#include "editor/KestrelEditor.h"
#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/OptionValues.h"
#include "tools/kestrel-host/WavReader.h"
#include "tools/kestrel-shot/Canvas.h"
#include "tools/kestrel-shot/Places.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace kestreleq::shot
{
namespace
{

constexpr int blockSize = 512;
constexpr double usualRate = 48000.0;
constexpr double tickLength = 50.0; // ms
constexpr double playedTime = 4.0;  // s, of the file's end: longer than anything on the screen remembers
constexpr int ticksToSlideIn = 8;

/** An editor whose time goes on only when told. */
struct Stage
{
    explicit Stage (double sampleRate)
    {
        processor.setRateAndBufferSizeDetails (sampleRate, blockSize);
        processor.prepareToPlay (sampleRate, blockSize);
        editor = std::make_unique<KestrelEditor> (processor);
        editor->setClock ([this] { return now; });
    }

    void set (const host::Assignment& assignment)
    {
        auto* parameter = processor.getCore().getTree().getParameter (assignment.id);

        if (parameter == nullptr)
            throw host::Failure ("no parameter " + host::inQuotes (assignment.id));

        parameter->setValueNotifyingHost (assignment.value);
    }

    void tick()
    {
        now += tickLength;
        editor->tick();
    }

    /** Plays the file's end; `onTick` is told how many ticks are still to come. */
    void play (host::WavReader& file, const std::function<void (std::int64_t)>& onTick)
    {
        const auto rate = static_cast<double> (file.sampleRate());
        const auto longest = static_cast<std::int64_t> (playedTime * rate);
        const auto skippedBlocks = std::max<std::int64_t> (file.length() - longest + blockSize - 1, 0) / blockSize;
        const auto played = file.length() - skippedBlocks * blockSize;
        juce::AudioBuffer<float> buffer (2, blockSize);
        juce::MidiBuffer midi;
        auto position = std::int64_t {};
        auto nextTick = tickLength;
        const auto ticks = static_cast<std::int64_t> (static_cast<double> (played) * 1000.0 / rate / tickLength);

        for (auto left = file.length(); left > 0;)
        {
            const auto count = static_cast<int> (std::min<std::int64_t> (left, blockSize));
            file.read (buffer.getWritePointer (0), buffer.getWritePointer (1), count);

            if (left <= played)
            {
                juce::AudioBuffer<float> block (buffer.getArrayOfWritePointers(), 2, count);
                processor.processBlock (block, midi);
                position += count;

                if (static_cast<double> (position) * 1000.0 / rate >= nextTick)
                {
                    tick();
                    onTick (ticks - static_cast<std::int64_t> (nextTick / tickLength));
                    nextTick += tickLength;
                }
            }

            left -= count;
        }
    }

    void open (OpenPart part)
    {
        switch (part)
        {
            case OpenPart::nothing:
                break;
            case OpenPart::presets:
                editor->getHeader().getPresetSelector().openBrowser();
                break;
            case OpenPart::menu:
                editor->getHeader().getMenu().openPopup();
                break;
            case OpenPart::oversampling:
                editor->getFooter().getOversampling().openPopup();
                break;
            case OpenPart::field:
                editor->getLane (0).getChart().keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
                break;
            case OpenPart::support:
                editor->openSupport();
                for (int i = 0; i < ticksToSlideIn; ++i)
                {
                    now += tickLength;
                    editor->getOverlay().advance();
                }
                break;
        }
    }

    void point (juce::Point<float> at)
    {
        for (std::size_t lane = 0; lane < numLanes; ++lane)
        {
            auto& chart = editor->getLane (lane).getChart();
            const auto place = chart.getLocalPoint (chart.getParentComponent(), at);
            const auto time = juce::Time::getCurrentTime();

            if (chart.isVisible() && chart.getLocalBounds().toFloat().contains (place))
                chart.mouseMove ({ juce::Desktop::getInstance().getMainMouseSource(), place, {}, 0.0f, 0.0f, 0.0f, 0.0f,
                    0.0f, &chart, &chart, time, place, time, 0, false });
        }
    }

    Canvas& canvasFor (const ShotOptions& options)
    {
        if (canvas == nullptr)
            canvas = std::make_unique<Canvas> (*editor,
                options.nativeRenderer ? static_cast<const juce::ImageType&> (juce::NativeImageType())
                                       : static_cast<const juce::ImageType&> (juce::SoftwareImageType()));

        return *canvas;
    }

    double now = 1000.0; // ms
    KestrelProcessor processor;
    std::unique_ptr<KestrelEditor> editor;
    std::unique_ptr<Canvas> canvas;
};

std::unique_ptr<Stage> setUp (const ShotOptions& options)
{
    std::optional<host::WavReader> audio;

    if (options.audio)
        audio.emplace (*options.audio);

    auto stage = std::make_unique<Stage> (audio ? static_cast<double> (audio->sampleRate()) : usualRate);

    if (options.program)
        stage->processor.setCurrentProgram (*options.program);

    for (const auto& assignment : options.sets)
        stage->set (assignment);

    stage->editor->setSize (juce::roundToInt (layout::designWidth * static_cast<double> (options.scale)),
        juce::roundToInt (layout::designHeight * static_cast<double> (options.scale)));
    stage->tick();

    if (audio)
        stage->play (*audio,
            [&] (std::int64_t ticksToCome)
            {
                if (options.paints > 1 && ticksToCome > 0 && ticksToCome < options.paints)
                    stage->canvasFor (options).paint();
            });

    stage->open (options.open);

    if (options.pointer)
        stage->point (juce::Point<double> (options.pointer->first, options.pointer->second).toFloat());

    return stage;
}

} // namespace

juce::Image shootEditor (const ShotOptions& options)
{
    const auto stage = setUp (options);
    auto& canvas = stage->canvasFor (options);
    canvas.paint();

    if (! options.audio)
        for (int paint = 1; paint < options.paints; ++paint)
            canvas.paintAll();

    return canvas.finish();
}

void listEditorPlaces (const ShotOptions& options, std::ostream& out)
{
    listPlaces (*setUp (options)->editor, out);
}

} // namespace kestreleq::shot
