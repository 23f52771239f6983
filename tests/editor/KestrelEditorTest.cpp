#include "editor/KestrelEditor.h"
#include "editor/EditorLayout.h"

#include "tests/support/Components.h"
#include "tests/support/EditorRig.h"
#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"
#include "tests/support/RepaintWatch.h"
#include "tests/support/Signals.h"

#include "ui_pro/primitives/FaceButton.h"
#include "ui_pro/style/Theme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;
using primitives::FaceButton;

TEST (KestrelEditor, AGestureIsOneStepAndUndoBringsBothLanesBack)
{
    EditorRig rig;
    rig.set ("sub", 0.9f);
    rig.tick();
    const auto before = rig.values();
    rig.drag (rig.editor->getLane (0).getKnob (2), 35.0f);
    rig.drag (rig.editor->getScaffold().getGlobalPanel().getTrimKnob(), 20.0f);
    Mouse (rig.editor->getLane (0).getPowerButton()).click ({ 13.0f, 13.0f });
    EXPECT_EQ (rig.get ("laneABypass"), 1.0f);
    EXPECT_EQ (rig.get ("laneBBypass"), 1.0f) << "linked";
    rig.editor->getLane (0).getKnob (0).triggerReset();
    EXPECT_EQ (rig.steps().size(), 4);
    EXPECT_GT (rig.get ("160hzR"), 0.7f);

    for (int step = 0; step < 4; ++step)
    {
        EXPECT_TRUE (rig.press ('z', juce::ModifierKeys::ctrlModifier));

        if (step == 0)
        {
            EXPECT_EQ (findTitled<FaceButton> (*rig.editor, "Undo")->getTooltip(), "Lane 1 Bypass");
            EXPECT_EQ (findTitled<FaceButton> (*rig.editor, "Redo")->getTooltip(), "SUB");
        }
    }

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
    auto& panel = rig.editor->getLane (1).getPanel();
    const auto caption = rig.editor->getLocalArea (&panel, juce::Rectangle<int> (8, 20, 132, 50));
    const auto on = paintPicture (*rig.editor);
    const auto title = (layout::placeLane (1, false).title.toFloat() * 0.5f).getSmallestIntegerContainer();
    std::vector<juce::Image> titles { on.getClippedImage (title) };

    for (const auto* id : { "laneBBypass", "bypass" })
    {
        rig.set (id, 1.0f);
        rig.tick();
        const auto off = paintPicture (*rig.editor);

        for (const auto& area : { caption, { 80, 225, 560, 100 } }) // curve and nodes
            EXPECT_GT (countDifferentPixels (on.getClippedImage (area), off.getClippedImage (area), 16), 100)
                << area.toString() << ", " << id;
        titles.push_back (off.getClippedImage (title));
        rig.set (id, 0.0f);
        rig.tick();
        EXPECT_EQ (countDifferentPixels (on, paintPicture (*rig.editor), 16), 0);
    }

    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_GT (countDifferentPixels (titles[i], titles[(i + 1) % 3], 16), 20) << "ENABLED, OFF, ENABLED but dim";
}

TEST (KestrelEditor, WhatHasTheKeyboardShowsIt)
{
    EditorRig rig;

    for (const auto* title : { "Initial preset", "Preset", "Undo", "Settings A", "Menu", "Enabled, lane A", "BREAK",
             "INPUT LINK", "Oversampling" })
    {
        rig.editor->grabKeyboardFocus();
        rig.editor->getHeader().selectProgram (1); // something to undo
        auto* const button = findTitled<FaceButton> (*rig.editor, title);
        const auto before = paintPicture (*button);
        button->grabKeyboardFocus();
        EXPECT_GT (countDifferentPixels (before, paintPicture (*button), 16), 20) << title;
    }
}

/** Counts its paintings. */
struct Probe final : juce::Component
{
    void paint (juce::Graphics&) override { ++painted; }

    int painted = 0;
};

TEST (KestrelEditor, PaintsNothingThatBackgroundOrChartCover)
{
    EditorRig rig;
    auto& chart = rig.editor->getLane (0).getChart();
    std::array<Probe, 2> probes;
    probes[0].setBounds (rig.editor->getLocalBounds());
    rig.editor->addAndMakeVisible (probes[0], 0);
    probes[1].setBounds (chart.getBounds().reduced (2));
    chart.getParentComponent()->addAndMakeVisible (probes[1], 0);

    paintPicture (*rig.editor);
    EXPECT_EQ (probes[0].painted, 0);
    EXPECT_EQ (probes[1].painted, 0);
}

TEST (KestrelEditor, ProgramsWrapAround)
{
    EditorRig rig;
    auto& selector = rig.editor->getHeader().getPresetSelector();
    const auto parts = controls::PresetSelector::Parts::within (selector.getLocalBounds());
    rig.click (selector, parts.previous.getCentre());
    rig.tick();
    EXPECT_EQ (selector.getCurrentLabel(), "06  Lo-Fi Crunch");
    rig.click (selector, parts.next.getCentre());
    rig.tick();
    EXPECT_EQ (selector.getCurrentLabel(), "01  Flat");
    EXPECT_EQ (rig.steps()[0], "Load preset: Flat");
}

TEST (KestrelEditor, TheLabelTellsWhatSounds)
{
    EditorRig rig;
    const auto label = [&rig]
    {
        rig.tick();
        return rig.editor->getHeader().getPresetSelector().getCurrentLabel().toStdString();
    };
    const auto countInForce = [&rig]
    {
        const auto& library = rig.editor->getHeader().getPresetSelector().getLibrary();
        int count = 0;

        for (int id = 0; id < 6; ++id)
            count += library.isInForce (*library.find (id)) ? 1 : 0;

        return count;
    };
    const auto command = juce::ModifierKeys::ctrlModifier;
    rig.processor.setCurrentProgram (3);
    juce::MemoryBlock saved;
    rig.processor.getStateInformation (saved);

    rig.tick(); // sees nothing to paste; then another instance copies
    ProcessorRig other;
    StateClipboard source (other.processor);
    source.write = [&rig] (const juce::String& text) { rig.clipboardText = text; };
    source.copy();
    rig.press ('v', command);
    EXPECT_EQ (label(), "07  Custom");
    EXPECT_EQ (rig.editor->getHeader().getBar().getPresetName(), "Custom");
    EXPECT_EQ (countInForce(), 0);
    EXPECT_EQ (rig.steps()[0], "Paste");
    rig.press ('z', command);
    EXPECT_EQ (label(), "04  Bright & Airy");
    EXPECT_EQ (countInForce(), 1);
    rig.press ('y', command);
    rig.editor.reset();
    rig.open();
    EXPECT_EQ (label(), "07  Custom") << "in a window that was opened again";

    juce::MemoryBlock custom;
    rig.processor.getStateInformation (custom);
    rig.processor.setStateInformation (saved.getData(), static_cast<int> (saved.getSize()));
    EXPECT_EQ (label(), "04  Bright & Airy") << "restored";
    rig.processor.setStateInformation (custom.getData(), static_cast<int> (custom.getSize()));
    EXPECT_EQ (label(), "07  Custom");
    rig.processor.setCurrentProgram (0);
    EXPECT_EQ (label(), "01  Flat") << "though it was the number before, too";

    // A slot has its own, and so has a step.
    auto& control = rig.editor->getHeader().getAbControl();
    rig.click (control, { 50, 10 });
    rig.processor.setCurrentProgram (5);
    rig.click (control, { 20, 10 });
    EXPECT_EQ (label(), "01  Flat");
    rig.editor->grabKeyboardFocus();
    rig.press ('z', command);
    EXPECT_EQ (label(), "06  Lo-Fi Crunch");
    EXPECT_EQ (control.getSlot(), controls::ABSlot::B);
    EXPECT_FALSE (control.getButton (controls::ToolPair::Part::first).getToggleState());
    EXPECT_TRUE (control.getButton (controls::ToolPair::Part::second).getToggleState());
    rig.press ('z', command);
    EXPECT_EQ (label(), "01  Flat");

    for (const auto* text : { "", "something" }) // that another window has copied
    {
        rig.clipboardText = text;
        EXPECT_EQ (rig.clipboard().canPasteNow(), *text != 0);
        rig.tick();
        EXPECT_EQ (findTitled<FaceButton> (*rig.editor, "Paste")->isEnabled(), *text != 0);
    }
}

TEST (KestrelEditor, RemembersItsSize)
{
    ProcessorRig rig;
    {
        KestrelEditor editor (rig.processor);
        EXPECT_EQ (editor.getBounds(), juce::Rectangle<int> (836, 429));
        editor.resized(); // as a change of the channel mode does
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
    rig.editor->getHeader().selectProgram (3); // something to undo
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

    // Nothing behind it is reached by keys or by a screen reader.
    auto& selector = rig.editor->getHeader().getPresetSelector();
    for (int i = 0; i < 30; ++i)
    {
        EXPECT_TRUE (overlay.hasKeyboardFocus (true)) << i;
        rig.press (juce::KeyPress::rightKey, 0);
        EXPECT_FALSE (rig.press ('z', juce::ModifierKeys::ctrlModifier));
        rig.press (juce::KeyPress::tabKey, i % 3 == 0 ? juce::ModifierKeys::shiftModifier : 0);
    }

    auto* const about = findTitled (*panel, "ABOUT");
    about->grabKeyboardFocus();
    rig.window.click (middleOf (rig.window, "SYSTEM"));
    EXPECT_FALSE (about->hasKeyboardFocus (false)) << "the ring goes with the choice";
    EXPECT_TRUE (overlay.hasKeyboardFocus (true));

    EXPECT_EQ (rig.processor.getCurrentProgram(), 3);
    EXPECT_EQ (selector.getAccessibilityHandler(), nullptr);
    EXPECT_EQ (rig.editor->getLane (0).getKnob (0).getAccessibilityHandler(), nullptr);
    rig.editor->setSize (1672, 858);
    EXPECT_EQ (panel->getBounds(), rig.editor->getLocalBounds());

    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
    rig.now += 500.0;
    overlay.advance();
    EXPECT_FALSE (overlay.isVisible());
    EXPECT_TRUE (rig.editor->hasKeyboardFocus (false));
    EXPECT_NE (selector.getAccessibilityHandler(), nullptr);
    EXPECT_TRUE (rig.press ('z', juce::ModifierKeys::ctrlModifier));
}

} // namespace
} // namespace kestreleq::test
