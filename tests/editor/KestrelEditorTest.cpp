#include "editor/KestrelEditor.h"
#include "editor/EditorLayout.h"

#include "tests/support/MessagePump.h"
#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/RepaintWatch.h"
#include "tests/support/Signals.h"
#include "tests/support/Window.h"

#include "ui_pro/style/Theme.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;

/** A processor with its editor open, in a window that is on no screen. */
struct EditorRig : ProcessorRig
{
    EditorRig()
        : editor (std::make_unique<KestrelEditor> (processor)),
          window (editor->getWidth(), editor->getHeight())
    {
        editor->setClock ([this] { return now; });
        window.addAndMakeVisible (*editor);
        editor->grabKeyboardFocus();
        clipboard().read = [this] { return clipboardText; };
        clipboard().write = [this] (const juce::String& text) { clipboardText = text; };
    }

    ~EditorRig() { editor.reset(); }

    StateClipboard& clipboard() { return editor->getHeader().getClipboard(); }

    void tick()
    {
        now += 50.0;
        pumpMessages (1); // what attachments have to tell
        editor->tick();
    }

    /** Drags a control's face upwards by so many design pixels. */
    void drag (juce::Component& control, float distance)
    {
        Mouse mouse (control);
        mouse.down ({ 59.0f, 60.0f });
        mouse.drag ({ 59.0f, 60.0f - distance / 2.0f });
        mouse.drag ({ 59.0f, 60.0f - distance });
        mouse.up ({ 59.0f, 60.0f - distance });
    }

    std::array<float, numParameters> values()
    {
        std::array<float, numParameters> result;
        for (std::size_t i = 0; i < numParameters; ++i)
            result[i] = get (parameterTable[i].id);
        return result;
    }

    juce::StringArray steps() { return processor.getCore().getUndoManager().getUndoDescriptions(); }

    bool press (int key, int modifiers)
    {
        return window.pressKey (juce::KeyPress (key, modifiers, static_cast<juce::juce_wchar> (0)));
    }

    double now = 1000.0;
    juce::String clipboardText;
    std::unique_ptr<KestrelEditor> editor;
    Window window;
};

TEST (KestrelEditor, EveryKnobMovesItsParameterAndFollowsIt)
{
    EditorRig rig;
    rig.set ("link", 0.0f);
    rig.tick();

    for (std::size_t lane = 0; lane < numLanes; ++lane)
    {
        for (std::size_t i = 0; i < laneKnobs.size(); ++i)
        {
            auto& knob = rig.editor->getLane (lane).getKnob (i);
            const auto& info = infoOf (onLane (laneKnobs[i].parameter, lane));
            const auto before = rig.values();
            rig.drag (knob, 35.0f);

            auto expected = before;
            expected[indexOf (onLane (laneKnobs[i].parameter, lane))] += 0.25f;
            EXPECT_EQ (rig.values(), expected) << info.id;
            EXPECT_EQ (knob.getValueText(), rig.parameter (info.id).getCurrentValueAsText()) << info.id;

            rig.set (info.id, 0.0f);
            rig.tick();
            EXPECT_EQ (knob.getValue(), 0.0f) << info.id;

            Mouse (knob).doubleClick ({ 59.0f, 60.0f });
            EXPECT_EQ (rig.get (info.id), info.defaultValue) << info.id;
        }
    }
}

TEST (KestrelEditor, AGestureIsOneStepAndUndoBringsBothLanesBack)
{
    EditorRig rig;
    const auto before = rig.values();
    rig.drag (rig.editor->getLane (0).getKnob (2), 35.0f);
    rig.drag (rig.editor->getScaffold().getGlobalPanel().getTrimKnob(), 20.0f);
    Mouse (rig.editor->getLane (0).getPowerButton()).click ({ 13.0f, 13.0f });
    EXPECT_EQ (rig.get ("laneABypass"), 1.0f);
    EXPECT_EQ (rig.get ("laneBBypass"), 1.0f) << "linked";
    EXPECT_EQ (rig.steps().size(), 3);
    EXPECT_GT (rig.get ("160hzR"), 0.7f);

    for (int step = 0; step < 3; ++step)
        EXPECT_TRUE (rig.press ('z', juce::ModifierKeys::ctrlModifier));

    EXPECT_EQ (rig.values(), before);
    EXPECT_TRUE (rig.editor->getLane (0).getPowerButton().getToggleState());
    EXPECT_EQ (rig.editor->getLane (0).getKnob (2).getValue(), 0.5f);
    EXPECT_TRUE (rig.press ('z', juce::ModifierKeys::ctrlModifier | juce::ModifierKeys::shiftModifier));
    EXPECT_GT (rig.get ("160hzR"), 0.7f);

    EXPECT_FALSE (rig.press (juce::KeyPress::spaceKey, 0)) << "the host's";
    EXPECT_FALSE (rig.press ('c', juce::ModifierKeys::ctrlModifier | juce::ModifierKeys::shiftModifier));
}

TEST (KestrelEditor, ShowsTheChannelModeWithinATick)
{
    EditorRig rig;
    const auto look = [&rig] (std::size_t lane)
    {
        auto& panel = rig.editor->getLane (lane).getPanel();
        return std::tuple (panel.getCaption(), panel.getCaptionColour(), panel.isVisible(), panel.isTall());
    };
    const auto colour = [] (int role) { return style::Theme::accent (role); };

    rig.set ("msMode", 1.0f);
    rig.tick();
    EXPECT_EQ (look (0), std::tuple (juce::String ("STEREO"), colour (0), true, true));
    EXPECT_FALSE (rig.editor->getLane (1).getKnob (0).isVisible());

    rig.set ("link", 0.0f);
    rig.tick();
    EXPECT_EQ (look (0), std::tuple (juce::String ("MID"), colour (9), true, false));
    EXPECT_EQ (look (1), std::tuple (juce::String ("SIDE"), colour (12), true, false));
    EXPECT_EQ (rig.editor->getLane (1).getPowerButton().getColour(), colour (12));

    rig.set ("msMode", 0.0f);
    rig.tick();
    EXPECT_EQ (look (0), std::tuple (juce::String ("LEFT"), colour (3), true, false));
    EXPECT_EQ (look (1), std::tuple (juce::String ("RIGHT"), colour (6), true, false));

    Mouse (rig.editor->getScaffold().getGlobalPanel().getLink()).click ({ 10.0f, 10.0f });
    EXPECT_EQ (rig.get ("link"), 1.0f);
    pumpMessages (10);
    EXPECT_EQ (look (0), std::tuple (juce::String ("STEREO"), colour (0), true, true));
    EXPECT_EQ (rig.editor->getLane (0).getKnob (0).getBounds(), layout::placeLane (0, true).knobs[0]);
}

TEST (KestrelEditor, WhatIsBypassedLooksOff)
{
    EditorRig rig;
    rig.set ("link", 0.0f);
    rig.tick();
    const auto pictures = [&rig] {
        return std::array { paintPicture (*rig.editor), paintPicture (rig.editor->getLane (1).getPanel()) };
    };
    const auto on = pictures();

    for (const auto* id : { "laneBBypass", "bypass" })
    {
        rig.set (id, 1.0f);
        rig.tick();
        const auto off = pictures();
        EXPECT_GT (countDifferentPixels (on[1], off[1], 16), 300) << "caption, " << id;
        EXPECT_GT (countDifferentPixels (on[0].getClippedImage ({ 80, 225, 560, 100 }),
                       off[0].getClippedImage ({ 80, 225, 560, 100 }), 16),
            400)
            << "curve and nodes, " << id;
        rig.set (id, 0.0f);
        rig.tick();
        EXPECT_EQ (countDifferentPixels (on[0], pictures()[0], 16), 0);
    }
}

TEST (KestrelEditor, ProgramsWrapAroundAndAPasteIsCustom)
{
    EditorRig rig;
    auto& selector = rig.editor->getHeader().getPresetSelector();
    const auto parts = controls::PresetSelector::Parts::within (selector.getLocalBounds());
    const auto click = [&] (juce::Rectangle<int> part)
    {
        rig.window.click (rig.window.getLocalPoint (&selector, part.getCentre()));
        rig.tick();
    };

    click (parts.previous);
    EXPECT_EQ (selector.getCurrentLabel(), "06  Lo-Fi Crunch");
    EXPECT_EQ (rig.get ("breakMode"), 1.0f);
    click (parts.next);
    EXPECT_EQ (selector.getCurrentLabel(), "01  Flat");
    EXPECT_EQ (rig.steps()[0], "Load preset: Flat");

    rig.set ("sub", 0.9f);
    EXPECT_TRUE (rig.press ('c', juce::ModifierKeys::ctrlModifier));
    rig.set ("sub", 0.1f);
    EXPECT_TRUE (rig.press ('v', juce::ModifierKeys::ctrlModifier));
    EXPECT_EQ (rig.get ("sub"), 0.9f);
    rig.tick();
    EXPECT_TRUE (selector.getCurrentLabel().endsWith ("Custom")) << selector.getCurrentLabel();
    EXPECT_EQ (rig.steps()[0], "Paste");

    rig.processor.setCurrentProgram (2); // the host
    rig.tick();
    EXPECT_EQ (selector.getCurrentLabel(), "03  Bass Boost");
}

TEST (KestrelEditor, FlipsBetweenAAndB)
{
    EditorRig rig;
    auto& control = rig.editor->getHeader().getAbControl();
    rig.set ("40hz", 0.9f);
    const auto click = [&] (int x)
    { rig.window.click (rig.window.getLocalPoint (&control, juce::Point<int> (x, 10))); };
    click (50);
    rig.set ("40hz", 0.2f);
    click (20);
    EXPECT_EQ (rig.get ("40hz"), 0.9f);
    EXPECT_EQ (control.getSlot(), controls::ABSlot::A);
    click (35); // between them
    click (50);
    EXPECT_EQ (rig.get ("40hz"), 0.2f);
}

TEST (KestrelEditor, RemembersItsSize)
{
    ProcessorRig rig;
    {
        KestrelEditor editor (rig.processor);
        EXPECT_EQ (editor.getBounds(), juce::Rectangle<int> (836, 429));
        EXPECT_EQ (rig.processor.getEditorScaleStep(), -1) << "opening is not resizing";
        editor.setSize (1672, 858);
        EXPECT_EQ (rig.processor.getEditorScaleStep(), 10);
        editor.setSize (836, 429);
        EXPECT_EQ (rig.processor.getEditorScaleStep(), 0);
        editor.setSize (1254, 644);
    }
    EXPECT_EQ (KestrelEditor (rig.processor).getWidth(), 1254);
    rig.processor.setEditorScaleStep (1000);
    EXPECT_EQ (KestrelEditor (rig.processor).getWidth(), 3344);
}

TEST (KestrelEditor, ListensOnlyWhileItIsOpenAndPaintsOnlyWhatMoved)
{
    EditorRig rig;
    EXPECT_TRUE (rig.processor.isCapturing());
    rig.processor.prepareToPlay (44100.0, 256);
    EXPECT_FALSE (rig.processor.isCapturing());
    rig.tick();
    EXPECT_TRUE (rig.processor.isCapturing());

    rig.tick();
    {
        RepaintWatch watch (*rig.editor);
        for (int i = 0; i < 20; ++i)
            rig.tick();
        EXPECT_EQ (watch.takeCount(), 0) << "nothing has changed";

        Stereo signal { sine (1000.0, 44100.0, 8192, 0.5), sine (1000.0, 44100.0, 8192, 0.5) };
        rig.process (signal, 256);
        for (int i = 0; i < 10; ++i)
            rig.tick(); // the curve rises step by step
        EXPECT_GT (watch.takeCount(), 0);
        const auto levels = rig.editor->getLane (0).getChart().getSpectrum().getLevels (1);
        EXPECT_GT (*std::max_element (levels.begin(), levels.end()), -60.0f);
    }

    rig.editor.reset();
    EXPECT_FALSE (rig.processor.isCapturing());
}

TEST (KestrelEditor, LeavesNoPixelOfItsWindowUnpainted)
{
    EditorRig rig;
    const auto paintOver = [&rig] (juce::Colour beneath)
    {
        juce::Image picture (
            juce::Image::ARGB, rig.editor->getWidth(), rig.editor->getHeight(), true, juce::SoftwareImageType());
        juce::Graphics g (picture);
        g.fillAll (beneath);
        rig.editor->paintEntireComponent (g, true);
        return picture;
    };

    for (const auto linked : { 1.0f, 0.0f })
    {
        rig.set ("link", linked);
        rig.tick();

        for (const auto width : { 836, 1003, 1588 })
        {
            rig.editor->setSize (width, width * 429 / 836);
            EXPECT_EQ (countDifferentPixels (paintOver (juce::Colours::magenta), paintOver (juce::Colours::lime), 0), 0)
                << width;
        }
    }
}

TEST (KestrelEditor, OpensSupportAndClosesItWithEscape)
{
    EditorRig rig;
    rig.editor->openSupport();
    auto& overlay = rig.editor->getOverlay();
    rig.now += 500.0;
    overlay.advance();
    EXPECT_EQ (overlay.getProgress(), 1.0f);

    auto* panel = dynamic_cast<controls::SupportDiagnosticsPanel*> (overlay.getContent());
    ASSERT_NE (panel, nullptr);
    EXPECT_EQ (panel->getRecord().channelLayout, "Stereo in / Stereo out");
    EXPECT_EQ (panel->getRecord().sampleRate, 48000.0);
    EXPECT_TRUE (panel->getRecord().supportEmail.containsChar ('@'));

    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
    rig.now += 500.0;
    overlay.advance();
    EXPECT_FALSE (overlay.isVisible());
}

TEST (KestrelEditor, APopupKeepsTheKeyboardWhenTheWindowIsToldLateThatItHasIt)
{
    EditorRig rig;
    auto& header = rig.editor->getHeader();
    const auto late = [&rig] (const std::function<void()>& open)
    {
        rig.editor->grabKeyboardFocus();
        rig.window.getPeer()->handleFocusLoss();
        open();
        rig.window.getPeer()->handleFocusGain();
        pumpMessages (1);
    };

    late ([&] { header.getMenu().openPopup(); });
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
    EXPECT_EQ (header.getMenu().getPopup(), nullptr);

    late ([&] { header.getPresetSelector().openBrowser(); });
    EXPECT_TRUE (rig.window.pressKey ({ juce::KeyPress::spaceKey, {}, U' ' })) << "typed into the search";
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));

    auto& oversampling = rig.editor->getFooter().getOversampling();
    late ([&] { oversampling.openPopup(); });
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
    EXPECT_EQ (oversampling.getPopup(), nullptr);

    late ([&] { rig.editor->openSupport(); });
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
}

TEST (KestrelEditor, GoesAwayInTheMiddleOfADrag)
{
    EditorRig rig;
    auto& knob = rig.editor->getLane (0).getKnob (1);
    Mouse mouse (knob);
    mouse.down ({ 59.0f, 60.0f });
    mouse.drag ({ 59.0f, 20.0f });
    rig.editor.reset();
    EXPECT_EQ (rig.steps().size(), 1);
    EXPECT_TRUE (rig.processor.getCore().getHistory().undo()) << "the step has ended";
    EXPECT_EQ (rig.get ("40hz"), 0.5f);
}

} // namespace
} // namespace kestreleq::test
