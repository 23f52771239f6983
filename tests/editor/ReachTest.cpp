#include "tests/support/Components.h"
#include "tests/support/EditorRig.h"

#include "ui_pro/controls/presets/PresetBrowserPopup.h"
#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/primitives/FaceButton.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using quillon::ui_pro::controls::KnobControl;
using quillon::ui_pro::primitives::DropDownList;
using quillon::ui_pro::primitives::FaceButton;

using Prepare = void (*) (EditorRig&);
using State = juce::String (*) (EditorRig&);

juce::String program (EditorRig& rig)
{
    return juce::String (rig.processor.getCurrentProgram());
}

juce::String openList (EditorRig& rig)
{
    return DropDownList::findOpenIn (*rig.editor) != nullptr ? "open" : "closed";
}

juce::String slot (EditorRig& rig)
{
    return juce::String (static_cast<int> (rig.editor->getHeader().getAbControl().getSlot()));
}

/** A button of the window, what makes it worth pressing, and what a press changes. */
struct ButtonRow
{
    const char* title;
    Prepare prepare;
    State state;
};

void nothing (EditorRig&) {}

void load (EditorRig& rig)
{
    rig.editor->getHeader().selectProgram (3);
}

void loadAndUndo (EditorRig& rig)
{
    load (rig);
    rig.editor->getHeader().selectProgram (4);
    rig.press ('z', juce::ModifierKeys::ctrlModifier);
}

template <Parameter parameter>
juce::String valueOf (EditorRig& rig)
{
    return juce::String (rig.get (infoOf (parameter).id));
}

/** Every button of the window that both lanes are shown in, as the eye goes: from left to right and downwards. */
const ButtonRow buttonRows[] {
    { "Initial preset", load, program },
    { "Previous preset", nothing, program },
    { "Preset", nothing,
        [] (EditorRig& rig)
        { return juce::String (rig.editor->getHeader().getPresetSelector().getBrowser() != nullptr ? "open" : ""); } },
    { "Next preset", nothing, program },
    { "Undo", load, valueOf<Parameter::airGain> },
    { "Redo", loadAndUndo, valueOf<Parameter::airGain> },
    { "Settings A",
        [] (EditorRig& rig) { rig.editor->getHeader().getAbControl().select (quillon::ui_pro::controls::ABSlot::B); },
        slot },
    { "Settings B", nothing, slot },
    { "Copy", nothing, [] (EditorRig& rig) { return rig.clipboardText; } },
    { "Paste",
        [] (EditorRig& rig)
        {
            rig.press ('c', juce::ModifierKeys::ctrlModifier);
            rig.set ("sub", 0.9f);
        },
        valueOf<Parameter::sub> },
    { "Menu", nothing, openList },
    { "Enabled, lane A", nothing, valueOf<Parameter::laneABypass> },
    { "Enabled, lane B", nothing, valueOf<Parameter::laneBBypass> },
    { "MASTER BYPASS", nothing, valueOf<Parameter::bypass> },
    { "LINK L/R", nothing, valueOf<Parameter::link> },
    { "M/S MODE", nothing, valueOf<Parameter::msMode> },
    { "BREAK", nothing, valueOf<Parameter::breakMode> },
    { "INPUT LINK", nothing, valueOf<Parameter::inGainLink> },
    { "INPUT AUTO GAIN", nothing, valueOf<Parameter::inAutoGain> },
    { "OUTPUT LINK", nothing, valueOf<Parameter::outGainLink> },
    { "OUTPUT AUTO GAIN", nothing, valueOf<Parameter::outAutoGain> },
    { "Oversampling", nothing, openList },
};

/** An editor that shows both lanes. */
struct WideRig : EditorRig
{
    WideRig()
    {
        set ("link", 0.0f);
        tick();
    }
};

TEST (Reach, EveryButtonIsWorkedByMouseByKeyboardAndByVoice)
{
    for (const auto& row : buttonRows)
    {
        const std::pair<const char*, void (*) (EditorRig&, FaceButton&)> ways[] {
            { "mouse",
                [] (EditorRig& rig, FaceButton& button)
                { rig.window.click (rig.window.getLocalPoint (&button, button.getLocalBounds().getCentre())); } },
            { "keyboard",
                [] (EditorRig& rig, FaceButton& button)
                {
                    button.grabKeyboardFocus();
                    EXPECT_TRUE (rig.press (juce::KeyPress::returnKey, 0));
                } },
            { "the space bar",
                [] (EditorRig& rig, FaceButton& button)
                {
                    button.grabKeyboardFocus();
                    EXPECT_TRUE (rig.press (juce::KeyPress::spaceKey, 0));
                } },
            { "voice",
                [] (EditorRig&, FaceButton& button)
                { button.getAccessibilityHandler()->getActions().invoke (juce::AccessibilityActionType::press); } },
        };

        for (const auto& [way, work] : ways)
        {
            WideRig rig;
            row.prepare (rig);
            rig.tick();
            auto* const button = findTitled<FaceButton> (*rig.editor, row.title);
            ASSERT_NE (button, nullptr) << row.title;
            EXPECT_NE (button->getTooltip(), "") << row.title;
            const auto before = row.state (rig);
            work (rig, *button);
            EXPECT_TRUE (pumpMessagesUntil ([&] { return row.state (rig) != before; }, 1000))
                << row.title << " by " << way;
        }
    }
}

TEST (Reach, EveryKnobTakesByVoiceWhatItShows)
{
    WideRig rig;
    std::vector<std::pair<KnobControl*, const ParameterInfo*>> knobs;

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        for (std::size_t i = 0; i < laneKnobs.size(); ++i)
            knobs.emplace_back (
                &rig.editor->getLane (lane).getKnob (i), &infoOf (onLane (laneKnobs[i].parameter, lane)));

    for (const auto& [title, parameter] : { std::pair { "TRIM", Parameter::trim },
             { "INPUT GAIN 1", Parameter::inGain1 }, { "INPUT GAIN 2", Parameter::inGain2 },
             { "OUTPUT GAIN 1", Parameter::outGain1 }, { "OUTPUT GAIN 2", Parameter::outGain2 } })
        knobs.emplace_back (findTitled<KnobControl> (*rig.editor, title), &infoOf (parameter));

    for (const auto& [knob, info] : knobs)
    {
        ASSERT_NE (knob, nullptr) << info->id;
        EXPECT_FALSE (knob->getWantsKeyboardFocus()) << info->id;
        EXPECT_NE (knob->getTooltip(), "") << info->id;
        auto& value = *knob->getAccessibilityHandler()->getValueInterface();
        rig.set (info->id, 0.25f);
        rig.tick();
        const auto shown = value.getCurrentValueAsString();
        value.setValueAsString (shown); // as assistive input does
        EXPECT_EQ (value.getCurrentValueAsString(), shown) << info->id;
        EXPECT_NEAR (rig.get (info->id), 0.25f, 0.06f) << info->id;
        value.setValueAsString ("loud");
        EXPECT_EQ (value.getCurrentValueAsString(), shown) << info->id << ": no number changes nothing";
    }

    EXPECT_TRUE (rig.press ('z', juce::ModifierKeys::ctrlModifier)) << "a step like any other";
}

TEST (Reach, TheTabKeyGoesToEveryButtonAsTheEyeGoesAndAClickTakesTheFocusToNone)
{
    WideRig rig;
    loadAndUndo (rig);
    rig.set ("link", 0.0f);
    rig.press ('c', juce::ModifierKeys::ctrlModifier);
    rig.tick();

    juce::StringArray expected;
    for (const auto& row : buttonRows)
        expected.add (row.title);

    for (const auto backwards : { false, true })
    {
        juce::StringArray walked;
        rig.editor->grabKeyboardFocus();

        for (int i = 0; i < 60; ++i)
        {
            rig.press (juce::KeyPress::tabKey, backwards ? juce::ModifierKeys::shiftModifier : 0);
            auto* const focused = dynamic_cast<FaceButton*> (juce::Component::getCurrentlyFocusedComponent());

            if (focused == nullptr) // a node of a chart
                continue;

            if (walked.contains (focused->getTitle()))
                break;

            walked.insert (backwards ? 0 : -1, focused->getTitle());
        }

        EXPECT_EQ (walked.joinIntoString ("\n"), expected.joinIntoString ("\n"));
    }

    auto& copy = *findTitled<FaceButton> (*rig.editor, "Copy");
    copy.grabKeyboardFocus();
    rig.window.click (rig.window.getLocalPoint (&copy, copy.getLocalBounds().getCentre()));
    EXPECT_TRUE (rig.editor->hasKeyboardFocus (false));
    copy.grabKeyboardFocus();
    rig.window.click ({ 3, 200 }); // beside everything
    EXPECT_TRUE (rig.editor->hasKeyboardFocus (false));

    auto& selector = rig.editor->getHeader().getPresetSelector();
    selector.openBrowser();

    for (const auto at : { juce::Point<int> (3, 200), { 60, 10 }, { 150, 250 }, { 400, 420 }, { 780, 380 } })
    {
        rig.window.click (at);
        EXPECT_TRUE (selector.getBrowser()->getSearchField().hasKeyboardFocus (true)) << at.toString();
    }
}

TEST (Reach, WhatAHeldKeyDoesToANodeIsOneStep)
{
    EditorRig rig;
    auto& chart = rig.editor->getLane (0).getChart();
    chart.grabKeyboardFocus();
    const auto hold = [&] (int key)
    {
        rig.keysAreHeld = true;
        for (int i = 0; i < 20; ++i)
        {
            rig.press (key, 0);
            rig.tick();
        }
    };
    hold (juce::KeyPress::upKey);
    EXPECT_NEAR (rig.get ("subR"), 0.7f, 1e-5f) << "and moves it at once";
    hold (juce::KeyPress::downKey);
    EXPECT_NEAR (rig.get ("sub"), 0.5f, 1e-5f);
    rig.keysAreHeld = false;
    rig.window.getPeer()->handleKeyUpOrDown (false);
    EXPECT_EQ (rig.steps(), juce::StringArray ({ "Move chart node", "Move chart node" }));

    hold (juce::KeyPress::upKey);
    rig.editor->grabKeyboardFocus();
    EXPECT_TRUE (rig.press ('z', juce::ModifierKeys::ctrlModifier)) << "the keyboard went elsewhere";
    EXPECT_NEAR (rig.get ("sub"), 0.5f, 1e-5f);
}

/** Everything that a screen reader finds in a component has a kind and a name. */
void expectSpoken (juce::Component& component)
{
    for (auto* child : component.getChildren())
    {
        if (! child->isShowing())
            continue;

        if (auto* handler = child->getAccessibilityHandler(); handler != nullptr && ! handler->isIgnored())
        {
            EXPECT_NE (handler->getRole(), juce::AccessibilityRole::unspecified)
                << typeid (*child).name() << " " << handler->getTitle();
            EXPECT_NE (handler->getTitle(), "") << typeid (*child).name();
        }

        if (dynamic_cast<juce::TextEditor*> (child) == nullptr) // the framework's
            expectSpoken (*child);
    }
}

TEST (Reach, WhatIsHeardHasAKindAndANameAndDecorationIsNotHeard)
{
    WideRig rig;
    expectSpoken (rig.window);
    rig.editor->getHeader().getPresetSelector().openBrowser();
    expectSpoken (rig.window);
    rig.editor->getHeader().getPresetSelector().closeBrowser();
    rig.editor->openSupport();
    expectSpoken (rig.window);
}

} // namespace
} // namespace kestreleq::test
