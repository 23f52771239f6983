#include "tests/editor/ControlTable.h"
#include "tests/support/Components.h"

#include "ui_pro/primitives/FaceButton.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using quillon::ui_pro::controls::KnobControl;
using quillon::ui_pro::primitives::FaceButton;

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

    for (const auto& [title, parameter] : knobRows())
    {
        auto* const knob = findTitled<KnobControl> (*rig.editor, title);
        const auto* const info = &infoOf (parameter);
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

    const auto expected = tabStops();

    for (const auto backwards : { false, true })
    {
        juce::StringArray walked;
        rig.editor->grabKeyboardFocus();

        for (int i = 0; i < 60; ++i)
        {
            rig.press (juce::KeyPress::tabKey, backwards ? juce::ModifierKeys::shiftModifier : 0);
            const auto title = juce::Component::getCurrentlyFocusedComponent()->getTitle();

            if (walked.contains (title))
                break;

            walked.insert (backwards ? 0 : -1, title);
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

TEST (Reach, EveryNodeTellsItsValue)
{
    WideRig rig;

    for (const auto& [lane, node, parameter] : nodeRows())
    {
        auto& chart = rig.editor->getLane (lane).getChart();
        for (chart.grabKeyboardFocus(); chart.getFocusedNode() != node;)
            ASSERT_TRUE (rig.press (juce::KeyPress::rightKey, 0));
        EXPECT_TRUE (chart.getAccessibilityHandler()->getValueInterface()->getCurrentValueAsString().startsWith (
            juce::String (laneKnobs[node].caption) + " " +
            rig.parameter (infoOf (parameter).id).getCurrentValueAsText()));
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
