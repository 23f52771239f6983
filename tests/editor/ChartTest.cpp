#include "editor/chart/KestrelChartView.h"
#include "editor/chart/LaneAxes.h"

#include "tests/support/MessagePump.h"
#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/RepaintWatch.h"
#include "tests/support/Signals.h"
#include "ui_pro/controls/chart/CurvePainter.h"
#include "ui_pro/controls/chart/SpectrumPainter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace kestreleq::test
{
namespace
{

TEST (LaneAxes, LeaveTheLabelsTheirMarginsAndStopAtTheirEnds)
{
    const auto axes = makeLaneAxes (1120, 196);
    EXPECT_EQ (axes.plot.getWidth(), 1089.0f);
    EXPECT_EQ (axes.plot.getHeight(), 177.0f);
    EXPECT_EQ (axes.xFor (1.0), axes.plot.getX());
    EXPECT_EQ (axes.xFor (1e6), axes.plot.getRight());
    EXPECT_NEAR (axes.xFor (std::sqrt (20.0 * 40000.0)), axes.plot.getCentreX(), 0.01f);
    EXPECT_NEAR (axes.frequencyAt (axes.xFor (1234.0)), 1234.0, 0.1);
    EXPECT_EQ (axes.yFor (30.0), axes.plot.getY());
    EXPECT_EQ (axes.yFor (-18.0), axes.plot.getBottom());
    EXPECT_NEAR (axes.yFor (9.0), axes.plot.getY() + axes.plot.getHeight() * 0.25f, 0.01f);
    EXPECT_TRUE (makeLaneAxes (5, 5).plot.isEmpty());
}

TEST (SpectrumDisplay, RisesAtOnceAndFallsInItsTime)
{
    SpectrumDisplay display;
    double now = 1000.0;
    display.clock = [&now] { return now; };
    const auto show = [&] (std::vector<float> levels, double rate = 48000.0) {
        return display.refresh ({ std::span<const float> (levels), {} }, rate);
    };

    constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE (show ({ -10.0f, nan, -200.0f }));
    EXPECT_EQ (display.getLevels (0)[0], -10.0f);
    EXPECT_EQ (display.getLevels (0)[1], -84.0f);
    EXPECT_TRUE (display.getLevels (1).empty());

    now += 1500.0;
    EXPECT_TRUE (show ({ -58.0f, -30.0f, -200.0f }));
    EXPECT_NEAR (display.getLevels (0)[0], -46.0f, 1e-3f);
    EXPECT_EQ (display.getLevels (0)[1], -30.0f);
    now += 500.0;
    EXPECT_TRUE (show ({ -58.0f, -30.0f, -200.0f }));
    EXPECT_EQ (display.getLevels (0)[0], -58.0f);
    now += 500.0;
    EXPECT_FALSE (show ({ -58.0f, -30.0f, -200.0f })) << "what lies below the floor is not drawn";

    // Bins lie at the middles of equal parts of the axis; a rate that is none counts as 48 kHz.
    EXPECT_NEAR (display.getFrequencies()[1], 20.0 * std::pow (1200.0, 0.5), 0.01);
    show ({ -58.0f }, nan);
    EXPECT_EQ (display.getFrequencies().size(), 1u);
    EXPECT_EQ (display.getFrequencies()[0], 20.0f);
    show ({ -20.0f, -40.0f }, 8000.0);
    EXPECT_NEAR (display.getFrequencies()[1], 20.0 * std::pow (200.0, 0.75), 0.01);
    EXPECT_EQ (display.getLevels (0)[1], -40.0f);
}

TEST (SpectrumDisplay, EveryToneIsDrawnAsHighAsTheAnalyserHasIt)
{
    using namespace quillon::ui_pro::controls;
    const ChartAxes axes {
        .plot = makeLaneAxes (1120, 196).plot, .highestHz = 40000.0, .lowestDb = -84.0, .highestDb = 24.0
    };
    std::mt19937 random (17);

    for (const auto rate : { 44100.0, 48000.0, 96000.0, 192000.0 })
    {
        for (int tone = 0; tone < 80; ++tone)
        {
            const auto part = std::uniform_real_distribution<> (0.0, 1.0) (random);
            const auto frequency = 100.0 * std::pow (0.45 * rate / 100.0, part);
            const auto samples = sine (frequency, rate, 4096, 0.25);
            analysis::SpectrumAnalyser analyser;
            ASSERT_TRUE (analyser.prepare (rate, 4096, 1024, 512));
            analyser.setOn (true);
            analyser.push (0, samples.data(), 4096);
            for (int tick = 0; tick < 30; ++tick)
                analyser.update();

            SpectrumDisplay display;
            display.refresh (analyser);
            const auto levels = display.getLevels (0);
            const auto points = makeSpectrumPoints (axes, display.getFrequencies(), levels, 4.0f); // half size
            EXPECT_LT (points.size(), 280u);
            const auto top = std::min_element (
                points.begin(), points.end(), [] (const auto& a, const auto& b) { return a.y < b.y; });
            EXPECT_NEAR (top->y, axes.yFor (*std::max_element (levels.begin(), levels.end())), 0.5f * 177.0f / 108.0f)
                << frequency << " Hz at " << rate;
            const auto bin = axes.xFor (frequency + rate / 4096.0) - axes.xFor (frequency);
            EXPECT_NEAR (top->x, axes.xFor (frequency), 4.0f + bin) << frequency << " Hz at " << rate;
        }
    }
}

/** A view of lane A with a size, in front of a processor that has its message thread here. */
struct ChartRig : ProcessorRig
{
    explicit ChartRig (double rate = 48000.0)
        : ProcessorRig (rate)
    {
        view->isKeyDown = [] (int) { return false; };
        view->setSize (1120, 196);
        view->refresh();
    }

    juce::UndoManager& undo() { return processor.getCore().getUndoManager(); }

    std::unique_ptr<KestrelChartView> view { KestrelChartView::create (processor, 0) };
    Mouse mouse { *view };
};

TEST (ChartView, DragsANodeAsOneNamedStep)
{
    ChartRig rig;
    const auto node = rig.view->getNodes().position (2);

    rig.mouse.down (node);
    rig.mouse.up (node);
    EXPECT_FALSE (rig.undo().canUndo()) << "a press alone makes no step";

    rig.mouse.down (node);
    for (int i = 1; i <= 40; ++i)
    {
        rig.mouse.drag (node.translated (3.0f, -static_cast<float> (i)));
        pumpMessages (5);
    }
    rig.mouse.up (node.translated (3.0f, -40.0f));

    EXPECT_NEAR (rig.get ("160hz"), 0.5f + 40.0f / 177.0f, 1e-4f);
    EXPECT_EQ (rig.get ("160hzR"), rig.get ("160hz"));
    EXPECT_LT (rig.view->getNodes().position (2).y, node.y - 10.0f) << "the node moves with its curve";
    EXPECT_EQ (rig.undo().getUndoDescription(), "Move chart node");
    EXPECT_EQ (rig.undo().getUndoDescriptions().size(), 1);
    EXPECT_FALSE (rig.processor.isTransactionPending());
    rig.processor.getCore().getHistory().undo();
    EXPECT_EQ (rig.get ("160hz"), 0.5f);
    EXPECT_EQ (rig.get ("160hzR"), 0.5f);
}

TEST (ChartView, ShiftMakesADragTenTimesFinerWithoutAJump)
{
    ChartRig rig;
    const auto node = rig.view->getNodes().position (2);
    const auto dragTo = [&] (float way, int keys) { rig.mouse.drag (node.translated (0.0f, -way), keys); };
    const auto moved = [&] { return (rig.get ("160hz") - 0.5f) * 177.0f; };

    rig.mouse.down (node);
    dragTo (10.0f, 0);
    dragTo (10.0f, juce::ModifierKeys::shiftModifier);
    EXPECT_NEAR (moved(), 10.0f, 1e-3f);
    dragTo (30.0f, juce::ModifierKeys::shiftModifier);
    EXPECT_NEAR (moved(), 12.0f, 1e-3f);
    dragTo (30.0f, 0);
    EXPECT_NEAR (moved(), 12.0f, 1e-3f);
    dragTo (1030.0f, 0);
    EXPECT_EQ (rig.get ("160hz"), 1.0f) << "the pointer may go on beyond the screen";
    dragTo (40.0f, 0);
    EXPECT_NEAR (moved(), 22.0f, 1e-3f);
    rig.mouse.up (node);
    EXPECT_EQ (rig.undo().getUndoDescriptions().size(), 1);
}

TEST (ChartView, KeysMoveResetAndTypeANodeEachAsOneNamedStep)
{
    ChartRig rig;
    using Key = juce::KeyPress;
    const auto press = [&rig] (int key, int modifiers = 0) { return rig.view->keyPressed (Key (key, modifiers, 0)); };
    const auto shift = juce::ModifierKeys::shiftModifier;
    auto& field = rig.view->getField();
    const auto type = [&] (const char* text)
    {
        press (Key::returnKey);
        field.setText (text);
        field.keyPressed (Key (Key::returnKey));
        pumpMessages (1); // the field's keys come back as messages
        const auto taken = ! field.isOpen();
        EXPECT_EQ (field.hasRefused(), ! taken);
        field.keyPressed (Key (Key::escapeKey));
        pumpMessages (1);
        EXPECT_FALSE (field.isOpen());
        return taken;
    };

    press (Key::rightKey);
    press (Key::rightKey);
    press (Key::upKey);
    EXPECT_NEAR (rig.get ("160hz"), 0.51f, 1e-5f);
    press (Key::downKey, shift);
    EXPECT_NEAR (rig.get ("160hz"), 0.509f, 1e-5f);
    EXPECT_EQ (rig.get ("160hzR"), rig.get ("160hz"));
    EXPECT_EQ (rig.undo().getUndoDescriptions(), juce::StringArray ({ "Move chart node", "Move chart node" }));
    rig.processor.getCore().getHistory().undo();
    EXPECT_NEAR (rig.get ("160hz"), 0.51f, 1e-5f);
    press (Key::deleteKey);
    EXPECT_EQ (rig.get ("160hz"), 0.5f);

    EXPECT_TRUE (type ("+2.5"));
    EXPECT_NEAR (rig.get ("160hz"), 0.75f, 1e-5f);
    EXPECT_TRUE (type (" -3 dB"));
    EXPECT_NEAR (rig.get ("160hz"), 0.2f, 1e-5f);
    EXPECT_TRUE (type ("0,25"));
    EXPECT_NEAR (rig.get ("160hz"), 0.525f, 1e-5f);
    EXPECT_TRUE (type ("99"));
    EXPECT_EQ (rig.get ("160hz"), 1.0f);

    for (const auto* text : { "", "loud", "3 Hz", "1.2.3", "--1", "nan", "+", "20K", "1e3" })
        EXPECT_FALSE (type (text)) << text;
    EXPECT_EQ (rig.get ("160hz"), 1.0f);
    EXPECT_EQ (rig.undo().getUndoDescription(), "Move chart node");

    for (int i = 0; i < 3; ++i)
        press (Key::leftKey); // round to the air
    EXPECT_EQ (rig.view->getFocusedNode(), ChartNodes::airNode);
    press (Key::pageUpKey);
    EXPECT_EQ (rig.get ("airBand"), 0.25f);
    EXPECT_TRUE (type ("20K"));
    EXPECT_EQ (rig.get ("airBand"), 0.75f);
    EXPECT_TRUE (type ("0.3"));
    EXPECT_NEAR (rig.get ("airGain"), 0.3f, 1e-5f);
    EXPECT_TRUE (type ("9000 Hz"));
    EXPECT_EQ (rig.get ("airBand"), 0.5f);
    EXPECT_FALSE (type ("3 dB"));

    EXPECT_FALSE (press ('z', juce::ModifierKeys::ctrlModifier)) << "shortcuts go on to the window";
    EXPECT_FALSE (press (Key::escapeKey));

    press (Key::returnKey);
    rig.view->setVisible (true);
    rig.view->setVisible (false);
    EXPECT_FALSE (field.isOpen());
}

TEST (ChartView, HidingItEndsTheStep)
{
    ChartRig rig;
    rig.view->setVisible (true);
    const auto node = rig.view->getNodes().position (2);
    rig.mouse.down (node);
    rig.mouse.drag (node.translated (0.0f, -40.0f));
    rig.view->setVisible (false);
    rig.mouse.drag (node.translated (0.0f, -80.0f));
    EXPECT_NEAR (rig.get ("160hz"), 0.5f + 40.0f / 177.0f, 1e-4f);
    EXPECT_TRUE (rig.processor.getCore().getHistory().undo());
    EXPECT_EQ (rig.get ("160hz"), 0.5f);
}

TEST (ChartView, TheAirNodeMovesBothWaysAndADoubleClickBringsItBack)
{
    ChartRig rig;
    const auto node = rig.view->getNodes().position (ChartNodes::airNode);
    EXPECT_EQ (rig.view->getNodes().hit (node), ChartNodes::airNode) << "beside the 2.5K node, not under it";

    const auto octave = rig.view->getAxes().xFor (2000.0) - rig.view->getAxes().xFor (1000.0);
    rig.mouse.down (node);
    rig.mouse.drag (node.translated (2.1f * octave, -88.5f));
    rig.mouse.up (node.translated (2.1f * octave, -88.5f));
    EXPECT_EQ (rig.get ("airBand"), 0.5f);
    EXPECT_NEAR (rig.get ("airGain"), 0.5f, 1e-3f);

    const auto moved = rig.view->getNodes().position (ChartNodes::airNode);
    EXPECT_NEAR (moved.x, rig.view->getAxes().xFor (10000.0), 0.5f);
    rig.mouse.doubleClick (moved);
    EXPECT_EQ (rig.get ("airBand"), 0.0f);
    EXPECT_EQ (rig.get ("airGain"), 0.0f);
    EXPECT_EQ (rig.undo().getUndoDescriptions().size(), 2);
}

TEST (ChartView, TellsWhatIsUnderThePointerClearOfTheCurve)
{
    ChartRig rig;
    rig.set ("650hz", 1.0f);
    rig.set ("sub", 0.0f);
    rig.set ("airBand", 0.5f);
    rig.set ("airGain", 0.6f);
    rig.view->refresh();
    const auto& axes = rig.view->getAxes();
    const auto curve = rig.view->getResponse().getCurve();

    rig.mouse.move ({ axes.xFor (2000.0), axes.plot.getBottom() - 3.0f });
    const auto level = describeLevel (levelAt (axes, curve, axes.xFor (2000.0)));
    EXPECT_EQ (rig.view->getReadoutText(), "2.00 kHz " + level);
    const auto told = paintPicture (*rig.view);
    rig.mouse.exit ({ 0.0f, -1.0f });
    EXPECT_EQ (rig.view->getReadoutText(), "");
    EXPECT_GT (countDifferentPixels (told, paintPicture (*rig.view), 16), 200);
    rig.mouse.move ({ 3.0f, 60.0f });
    EXPECT_EQ (rig.view->getReadoutText(), "") << "beside the plot";

    for (std::size_t node = 0; node < ChartNodes::count; ++node)
    {
        const auto at = rig.view->getNodes().position (node);
        rig.mouse.move (at);
        EXPECT_TRUE (rig.view->getReadoutText().endsWith (describeLevel (levelAt (axes, curve, at.x)))) << node;
    }
    EXPECT_TRUE (rig.view->getReadoutText().startsWith ("AIR 0.6 10K "));
    rig.view->keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
    EXPECT_EQ (rig.view->getReadoutText(), "") << "the field stands there";
    rig.view->getField().close();
    EXPECT_EQ (describeFrequency (632.4), "632 Hz");

    // Nowhere is the box in the curve's way, at half size either.
    for (auto x = axes.plot.getX(); x < axes.plot.getRight(); x += 13.0f)
    {
        const juce::Point<float> at (x, axes.yFor (levelAt (axes, curve, x)));

        for (const auto distance : { 0.0f, 14.0f })
        {
            const auto box = placeReadout (axes, curve, { {}, at, distance }, { 230.0f, 29.0f });
            EXPECT_TRUE (axes.plot.contains (box));
            if (distance > 0.0f)
            {
                EXPECT_LE (std::abs (box.getCentreY() - at.y), distance + 2.1f * box.getHeight()) << "near its node";
            }

            for (auto place = box.getX(); place <= box.getRight(); place += 2.0f)
                EXPECT_FALSE (box.contains (place, axes.yFor (levelAt (axes, curve, place)))) << x;
        }
    }
}

TEST (ChartView, AMovedPointerRepaintsWhatItTellsAndNoMore)
{
    ChartRig rig;
    rig.set ("650hz", 1.0f);
    rig.view->refresh();
    const auto& axes = rig.view->getAxes();
    const auto node = rig.view->getNodes().position (3);
    const std::array<juce::Point<float>, 5> way { { { 300.0f, 60.0f }, { 310.0f, 90.0f }, { 900.0f, 40.0f }, node,
        { 3.0f, 60.0f } } };

    for (const auto scale : { 0.5f, 1.0f, 2.0f })
    {
        auto before = paintPicture (*rig.view, scale);

        for (const auto at : way)
        {
            juce::RectangleList<int> asked;
            {
                RepaintWatch watch (*rig.view);
                rig.mouse.move (at);
                asked = watch.takeRegion();
            }
            auto pixels = 0;
            for (const auto& area : asked)
                pixels += area.getWidth() * area.getHeight();
            EXPECT_LT (pixels, juce::roundToInt (0.13f * axes.plot.getWidth() * axes.plot.getHeight())) << scale;

            // Nothing else has changed.
            auto now = paintPicture (*rig.view, scale);
            auto outside = now.createCopy();
            for (auto* const picture : { &before, &outside })
                for (const auto& area : asked)
                    picture->clear ((area.toFloat() * scale).getSmallestIntegerContainer());
            EXPECT_EQ (countDifferentPixels (before, outside, 0), 0) << at.toString() << " at " << scale;
            before = now;
        }
    }
}

TEST (ResponsePath, NeedsFewPointsAndMissesNoneByMuch)
{
    using namespace quillon::ui_pro::controls;
    std::vector<juce::Point<float>> points;
    for (int i = 0; i < 281; ++i)
        points.push_back ({ 3.9f * static_cast<float> (i),
            100.0f - 60.0f * std::exp (-0.002f * static_cast<float> ((i - 140) * (i - 140))) });

    const auto kept = thinCurve (points, 0.05f);
    EXPECT_LT (kept.size(), 120u);
    EXPECT_EQ (kept.front(), points.front());
    EXPECT_EQ (kept.back(), points.back());

    for (const auto& point : points)
    {
        const auto right = std::find_if (kept.begin() + 1, kept.end(), [&] (auto p) { return p.x >= point.x; });
        const auto left = right[-1];
        const auto y = left.y + (right->y - left.y) * (point.x - left.x) / (right->x - left.x);
        EXPECT_NEAR (y, point.y, 0.051f);
    }

    EXPECT_EQ (thinCurve (CurvePoints (points).first (1), 1.0f).size(), 1u);
    EXPECT_TRUE (thinCurve ({}, 1.0f).empty());
}

TEST (ChartView, TheAirNodeSaysWhenItIsOffAndABypassedLaneLooksOff)
{
    ChartRig rig;
    rig.set ("airGain", 0.5f);
    rig.view->refresh();
    const auto air = rig.view->getNodes().position (ChartNodes::airNode);
    const auto brightness = [&rig] (juce::Point<float> at)
    {
        const auto picture = paintPicture (*rig.view);
        auto brightest = 0.0f;

        for (int y = -4; y <= 4; ++y)
            for (int x = -4; x <= 4; ++x)
                brightest = std::max (brightest,
                    picture.getPixelAt (juce::roundToInt (at.x) + x, juce::roundToInt (at.y) + y).getBrightness());

        return brightest;
    };

    EXPECT_LT (brightness (air), 0.6f);
    rig.mouse.move (air);
    EXPECT_TRUE (rig.view->getReadoutText().contains ("2.5K off")) << rig.view->getReadoutText();
    rig.mouse.exit ({ 0.0f, -1.0f });

    rig.set ("airBand", 0.25f);
    rig.view->refresh();
    EXPECT_GT (brightness (rig.view->getNodes().position (ChartNodes::airNode)), 0.8f);

    const auto node = rig.view->getNodes().position (2);
    const auto lit = brightness (node);
    rig.view->setActive (false);
    EXPECT_LT (brightness (node), 0.6f * lit) << "node and curve";
}

TEST (ChartView, ShowsTheSameCurveAtEveryHostRateUpTo96kHz)
{
    ChartRig slow (44100.0);
    ChartRig fast (96000.0);

    for (auto* rig : { &slow, &fast })
    {
        rig->set ("650hz", 0.9f);
        rig->set ("airBand", 1.0f);
        rig->set ("airGain", 0.7f);
        rig->view->refresh();
    }

    const auto a = slow.view->getResponse().getCurve();
    const auto b = fast.view->getResponse().getCurve();
    EXPECT_TRUE (std::equal (a.begin(), a.end(), b.begin(), b.end()));
}

TEST (ChartView, PaintsTheSpectrumOfWhatItHears)
{
    ChartRig rig;
    rig.processor.setCapturing (true);
    auto& analyser = rig.processor.getCore().getAnalyser (0);
    const auto still = paintPicture (*rig.view);

    Stereo signal { sine (1000.0, 48000.0, 24000, 0.5), sine (1000.0, 48000.0, 24000, 0.5) };
    rig.process (signal);
    for (int tick = 0; tick < 20; ++tick)
        analyser.update();
    rig.view->refresh();

    const auto levels = rig.view->getSpectrum().getLevels (1);
    EXPECT_GT (*std::max_element (levels.begin(), levels.end()), -20.0f);
    EXPECT_GT (countDifferentPixels (still, paintPicture (*rig.view), 16), 500);
}

} // namespace
} // namespace kestreleq::test
