#include "tests/support/Components.h"
#include "tests/support/MessagePump.h"
#include "tests/support/Mouse.h"
#include "tests/support/Window.h"

#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/style/Theme.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using quillon::ui_pro::primitives::DropDownList;
using quillon::ui_pro::primitives::ListItem;
using quillon::ui_pro::style::Theme;
using Key = juce::KeyPress;

class DropDownListTest : public testing::Test
{
protected:
    DropDownListTest()
    {
        window.addAndMakeVisible (content);
        window.addAndMakeVisible (field);
        content.addAndMakeVisible (anchor);
        field.setBounds (0, 380, 100, 40);
        field.setWantsKeyboardFocus (true);
        layOut ({ 836, 429 }, { 1600, 18 });
    }

    /** A window of this size around a design of 1672 x 858, with the anchor at a place of the design. */
    void layOut (juce::Point<int> size, juce::Point<int> place)
    {
        anchor.setBounds (place.x, place.y, 38, 32);
        content.setBounds (0, 0, 1672, 858);
        content.setTransform (juce::AffineTransform::scale (
            std::min (static_cast<float> (size.x) / 1672.0f, static_cast<float> (size.y) / 858.0f)));
        window.setSize (size.x, size.y);
    }

    ListItem item (const juce::String& text)
    {
        ListItem made;
        made.text = text;
        made.choose = [this, text] { chosen << text << " "; };
        return made;
    }

    std::vector<ListItem> items()
    {
        auto off = item ("Off");
        off.isEnabled = false;
        return { ListItem::headed ("first"), item ("Alpha"), item ("Beta"), ListItem::separating(), off,
            item ("Bravo") };
    }

    juce::String highlighted() const
    {
        return list.getHighlighted() != nullptr ? list.getHighlighted()->text : juce::String();
    }

    bool press (int key) { return window.pressKey (Key (key)); }

    bool type (char letter, int modifiers = 0)
    {
        return window.pressKey (Key (letter, juce::ModifierKeys (modifiers), static_cast<juce::juce_wchar> (letter)));
    }

    Window window { 836, 429 };
    juce::Component content;
    juce::Component anchor;
    juce::Component field; // has the keyboard before the list
    juce::String chosen;
    DropDownList list { anchor, Theme::get().menu };
};

TEST_F (DropDownListTest, IsWalkedByKeysAndLeavesTheOthersToTheHost)
{
    list.open (items());
    EXPECT_EQ (highlighted(), "");
    EXPECT_TRUE (press (Key::upKey));
    EXPECT_EQ (highlighted(), "Bravo");
    EXPECT_TRUE (press (Key::downKey));
    EXPECT_EQ (highlighted(), "Alpha") << "round the end, past the heading";
    EXPECT_TRUE (press (Key::upKey));
    EXPECT_EQ (highlighted(), "Bravo");
    EXPECT_TRUE (press (Key::upKey));
    EXPECT_EQ (highlighted(), "Beta") << "past what cannot be chosen";
    EXPECT_TRUE (press (Key::homeKey));
    EXPECT_EQ (highlighted(), "Alpha");
    EXPECT_TRUE (press (Key::endKey));
    EXPECT_EQ (highlighted(), "Bravo");

    for (const auto* expected : { "Beta", "Bravo", "Beta" })
    {
        EXPECT_TRUE (type ('b'));
        EXPECT_EQ (highlighted(), expected);
    }

    EXPECT_FALSE (type ('x'));
    EXPECT_FALSE (type ('b', juce::ModifierKeys::commandModifier));
    EXPECT_FALSE (press (Key::F1Key));
    EXPECT_EQ (highlighted(), "Beta");
    EXPECT_TRUE (press (Key::returnKey));
    EXPECT_FALSE (list.isOpen());
    list.open (items());
    EXPECT_TRUE (press (Key::spaceKey)) << "nothing is highlighted, and it is not the host's either";
    EXPECT_TRUE (press (Key::downKey));
    EXPECT_TRUE (press (Key::spaceKey));
    EXPECT_EQ (chosen, "Beta Alpha ");
    EXPECT_FALSE (press (Key::spaceKey)) << "closed";

    list.open ({ item ("Only") });
    press (Key::downKey);
    EXPECT_EQ (highlighted(), "Only");
}

TEST_F (DropDownListTest, HoweverItClosesTheKeyboardGoesBackToWhoHadIt)
{
    const std::vector<std::function<void()>> ways { [this] { press (Key::escapeKey); }, [this] { press (Key::tabKey); },
        [this] {
            window.click ({ 20, 200 });
        },
        [this] { window.click (middleOf (list, "Alpha")); }, [this] { list.setItems ({}); },
        [this] { anchor.setVisible (false); } };

    for (std::size_t way = 0; way < ways.size(); ++way)
    {
        for (auto* owner : { &field, static_cast<juce::Component*> (nullptr) })
        {
            anchor.setVisible (true);

            if (owner != nullptr)
                owner->grabKeyboardFocus();
            else
                juce::Component::unfocusAllComponents();

            list.open (items());
            ASSERT_TRUE (list.hasKeyboardFocus (true));
            ways[way]();
            EXPECT_FALSE (list.isOpen()) << way;
            EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), owner) << way;
        }
    }

    EXPECT_EQ (chosen, "Alpha Alpha ");

    // But where the user has put it since, it stays.
    anchor.setVisible (true);
    anchor.setWantsKeyboardFocus (true);
    anchor.grabKeyboardFocus();
    list.open (items());
    field.grabKeyboardFocus();
    list.close();
    EXPECT_TRUE (field.hasKeyboardFocus (false));
}

TEST_F (DropDownListTest, APressBesideItOnlyClosesAndOneOnADeadLineDoesNothing)
{
    juce::TextButton below ("below");
    below.setBounds (0, 100, 100, 100);
    below.setTriggeredOnMouseDown (true);
    below.onClick = [this] { chosen << "below "; };
    content.addAndMakeVisible (below);

    list.open (items());
    window.click (middleOf (list, "Off"));
    window.click (middleOf (list, "first"));
    window.sendMouse (middleOf (list, "Alpha"), juce::ModifierKeys::rightButtonModifier);
    window.moveMouse (middleOf (list, "Alpha"));
    EXPECT_TRUE (list.isOpen());
    window.moveMouse (middleOf (list, "Beta"));
    EXPECT_EQ (highlighted(), "Beta");
    window.moveMouse ({ 20, 60 });
    EXPECT_EQ (highlighted(), "");
    window.click ({ 20, 60 });
    EXPECT_FALSE (list.isOpen());
    EXPECT_EQ (chosen, "");
    window.click ({ 20, 60 });
    EXPECT_EQ (chosen, "below ");
}

TEST_F (DropDownListTest, StaysInTheWindowBesideItsAnchorWhereverThatIs)
{
    for (const auto* tokens : { &Theme::get().menu, &Theme::get().choices, &Theme::get().modes })
    {
        DropDownList placed (anchor, *tokens);

        for (const auto size : { juce::Point<int> (836, 429), { 3344, 1716 }, { 1000, 429 }, { 90, 40 } })
        {
            for (const auto place : { juce::Point<int> (1620, 18), { 0, 0 }, { 800, 420 }, { 1634, 826 }, { 0, 826 } })
            {
                layOut (size, place);
                placed.close();
                placed.open (items());
                const auto area = placed.getListBounds();
                EXPECT_TRUE (window.getLocalBounds().contains (area)) << size.x << ", " << place.toString();
                EXPECT_FALSE (size.x > 90 && area.intersects (window.getLocalArea (&anchor, anchor.getLocalBounds())))
                    << size.x << ", " << place.toString();
            }
        }
    }
}

TEST_F (DropDownListTest, ScrollsToWhatIsTickedAndToWhatTheKeysReach)
{
    std::vector<ListItem> many;

    for (int i = 0; i < 60; ++i)
        many.push_back (item ("Row " + juce::String (i)));

    many[40].isTicked = true;
    const auto isSeen = [this] (const juce::String& text)
    {
        auto& row = *findTitled (list, text);
        return list.getListBounds().contains (list.getLocalArea (&row, row.getLocalBounds()));
    };

    list.open (many);
    EXPECT_EQ (highlighted(), "Row 40");
    EXPECT_TRUE (isSeen ("Row 40"));
    EXPECT_FALSE (isSeen ("Row 0"));
    press (Key::homeKey);
    EXPECT_TRUE (isSeen ("Row 0"));
    press (Key::upKey);
    EXPECT_TRUE (isSeen ("Row 59"));
    Mouse wheel (list);
    wheel.wheel ({}, 1000.0f);
    EXPECT_TRUE (isSeen ("Row 0"));
    wheel.wheel ({}, -1000.0f);
    EXPECT_TRUE (isSeen ("Row 59"));
    window.click (middleOf (list, "Row 57"));
    EXPECT_EQ (chosen, "Row 57 ");
}

TEST_F (DropDownListTest, SpeaksToScreenReaders)
{
    auto all = items();
    all[2].isTicked = true;
    list.open (all);
    auto* const beta = findTitled (list, "Beta")->getAccessibilityHandler();
    EXPECT_TRUE (beta->hasFocus (false)) << "the highlighted row is announced";
    EXPECT_TRUE (beta->getCurrentState().isChecked());
    press (Key::downKey);
    EXPECT_TRUE (findTitled (list, "Bravo")->getAccessibilityHandler()->hasFocus (false));
    findTitled (list, "first")->getAccessibilityHandler()->getActions().invoke (juce::AccessibilityActionType::press);
    pumpMessages (1);
    EXPECT_TRUE (list.isOpen()) << "a heading";
    beta->getActions().invoke (juce::AccessibilityActionType::focus);
    EXPECT_EQ (highlighted(), "Beta");
    beta->getActions().invoke (juce::AccessibilityActionType::press);
    EXPECT_TRUE (list.isOpen()) << "what presses looks at the row afterwards";
    pumpMessagesUntil ([this] { return ! list.isOpen(); }, 2000);
    EXPECT_EQ (chosen, "Beta ");
}

TEST_F (DropDownListTest, AChoiceMayDeleteIt)
{
    auto owned = std::make_unique<DropDownList> (anchor, Theme::get().choices);
    auto deadly = item ("Alpha");
    deadly.choose = [&owned] { owned.reset(); };
    owned->open ({ deadly });
    window.click (middleOf (*owned, "Alpha"));
    EXPECT_EQ (owned, nullptr);
}

} // namespace
} // namespace kestreleq::test
