#include "editor/chart/KestrelChartView.h"
#include "editor/chart/LaneAxes.h"
#include "editor/header/PresetEntries.h"
#include "engine/parameters/FactoryPrograms.h"

#include "tests/support/MessagePump.h"
#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/RepaintWatch.h"
#include "tests/support/Signals.h"
#include "ui_pro/controls/chart/SpectrumPainter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace kestreleq::test
{
namespace
{

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
    rig.mouse.drag (node);
    rig.mouse.up (node);
    EXPECT_FALSE (rig.undo().canUndo()) << "a press alone makes no step";

    rig.mouse.down (node);
    for (int i = 1; i <= 40; ++i)
    {
        rig.mouse.drag (node.translated (3.0f, -static_cast<float> (i)));
        pumpMessages (5);
    }
    EXPECT_FALSE (rig.view->keyPressed (juce::KeyPress (juce::KeyPress::upKey))) << "one hand at a time";
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
    EXPECT_TRUE (type ("20"));
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
    EXPECT_EQ (rig.view->getNodes().hit (node + (rig.view->getNodes().position (4) - node) * 0.6f), 4u);

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
    EXPECT_EQ (describeFrequency (999.4) + ", " + describeFrequency (999.6), "999 Hz, 1.00 kHz");
    EXPECT_NEAR (levelAt (axes, std::array { 0.0, 6.0 }, axes.plot.getCentreX()), 3.0, 1e-6);
    EXPECT_GT (countDifferentPixels (told, paintPicture (*rig.view), 16), 200);
    rig.mouse.move ({ 3.0f, 60.0f });
    EXPECT_EQ (rig.view->getReadoutText(), "") << "beside the plot";

    for (std::size_t node = 0; node < ChartNodes::count; ++node)
    {
        const auto at = rig.view->getNodes().position (node);
        rig.mouse.move (at.translated (6.0f, 0.0f));
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

    for (const auto& [scale, typing] : { std::pair (0.5f, false), { 1.0f, false }, { 2.0f, false }, { 1.0f, true } })
    {
        if (typing)
            rig.view->keyPressed (juce::KeyPress (juce::KeyPress::returnKey)); // the field

        auto before = paintPicture (*rig.view, scale);

        for (const auto at : way)
        {
            juce::RectangleList<int> asked;
            {
                RepaintWatch watch (*rig.view);
                rig.mouse.move (at);
                asked = watch.takeAreas();
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
    RepaintWatch watch (*rig.view);
    rig.view->setActive (true);
    EXPECT_EQ (watch.takeCount(), 1);
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

    const auto& axes = slow.view->getAxes();
    dsp::LaneResponse expected;
    expected.prepare (96000.0, spreadFrequencies (axes, a.size()));
    expected.setParameters ({ .bands = { 0.5f, 0.5f, 0.5f, 0.9f, 0.5f }, .airAmount = 0.7f, .airStep = 1.0f });
    EXPECT_TRUE (std::equal (a.begin(), a.end(), expected.getCurve().begin()));
    EXPECT_LE (slow.view->getNodes().position (ChartNodes::airNode).x + ChartNodes::radius, axes.plot.getRight());

    RepaintWatch watch (*slow.view);
    slow.processor.setRateAndBufferSizeDetails (192000.0, 512);
    slow.view->refresh();
    EXPECT_EQ (watch.takeCount(), 1) << "at another rate";
}

TEST (PresetPreview, DrawsWhatTheProgramSoundsLike)
{
    constexpr int width = 300, height = 180; // 5 pixels a dB

    for (int program = 0; program < 6; ++program)
    {
        juce::Image picture (juce::Image::ARGB, width, height, true, juce::SoftwareImageType());
        juce::Graphics g (picture);
        paintPresetPreview (g, picture.getBounds(), program);

        const auto& wanted = factoryPrograms[static_cast<std::size_t> (program)];
        dsp::LaneResponse response;
        response.prepare (96000.0, { 100.0, 1000.0, 8000.0 });
        response.setParameters ({ .bands = wanted.bands, .airAmount = wanted.airGain, .airStep = wanted.airBand });
        const quillon::ui_pro::controls::ChartAxes axes { .plot = picture.getBounds().toFloat() };

        for (const auto& [hz, i] : { std::pair { 100.0, 0u }, { 1000.0, 1u }, { 8000.0, 2u } })
        {
            const auto y = juce::roundToInt (height / 2.0 - 5.0 * response.getCurve()[i]);
            EXPECT_GT (picture.getPixelAt (juce::roundToInt (axes.xFor (hz)), y).getAlpha(), 120)
                << program << ", " << hz;
        }
    }
}

} // namespace
} // namespace kestreleq::test
