#include "tests/support/Window.h"

#include "ui_pro/controls/header/MenuControl.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;
using Kind = MenuItem::Kind;

std::vector<MenuItem> exampleItems()
{
    return { { "reset", Kind::action, " Reset ", "Restore all.", {}, {} }, { "line", Kind::separator, {}, {}, {}, {} },
        { "manual", Kind::link, "Manual", {}, "address", {} }, { "nowhere", Kind::link, "Nowhere", {}, {}, {} },
        { "site", Kind::link, "Site", {}, "address", "Help" }, { "about", Kind::information, "About", {}, {}, {} } };
}

class MenuControlTest : public testing::Test
{
protected:
    MenuControlTest()
    {
        window.addAndMakeVisible (content);
        content.addAndMakeVisible (menu);
        layOut (836, 429);
        menu.setTopLeftPosition (1620, 18);
        menu.setItems (exampleItems());
        menu.setItemHandler (
            [this] (const MenuItem& item)
            {
                chosen << item.id << " ";
                return false;
            });
    }

    /** A window of this size around the design, scaled into it. */
    void layOut (int width, int height)
    {
        const auto scale = std::min (static_cast<float> (width) / 1672.0f, static_cast<float> (height) / 858.0f);
        content.setBounds (0, 0, 1672, 858);
        content.setTransform (juce::AffineTransform::scale (scale));
        window.setSize (width, height);
    }

    juce::Rectangle<int> buttonInWindow() const { return window.getLocalArea (&menu, menu.getLocalBounds()); }

    void clickButton() { window.click (buttonInWindow().getCentre()); }

    /** The middle of an item's row on the window. */
    juce::Point<int> rowOf (const juce::String& text) const
    {
        const auto* list = menu.getPopup()->getChildComponent (0);

        for (const auto* row : list->getChildren())
            if (row->getTitle() == text)
                return window.getLocalPoint (row, row->getLocalBounds().getCentre());

        ADD_FAILURE() << "no row " << text;
        return {};
    }

    Window window { 836, 429 };
    juce::Component content;
    MenuControl menu;
    juce::String chosen;
};

TEST (MenuItem, TextsAreTrimmedAndAnItemIsNeverWithoutAName)
{
    for (const auto& [kind, expected] : { std::pair { 0, "Untitled" }, { 1, "Untitled" }, { 2, "Untitled" }, { 3, "" },
             { 4, "" }, { 5, "Untitled" }, { 6, "" } })
    {
        const auto cleaned = cleanedMenuItems ({ { {}, static_cast<Kind> (kind), "   ", {}, {}, {} } });
        EXPECT_EQ (cleaned.front().text, expected) << kind;
    }

    EXPECT_EQ (cleanedMenuItems (exampleItems()).front().text, "Reset");
}

TEST_F (MenuControlTest, AClickOpensAndChoosingClosesAndHandsTheItemOver)
{
    clickButton();
    ASSERT_NE (menu.getPopup(), nullptr);
    window.click (rowOf ("Nowhere")); // a link that leads nowhere
    ASSERT_NE (menu.getPopup(), nullptr);
    window.click (rowOf ("Manual"));
    EXPECT_EQ (menu.getPopup(), nullptr);
    EXPECT_EQ (chosen, "manual ");

    clickButton();
    window.click ({ 5, 400 }); // beside it
    EXPECT_EQ (menu.getPopup(), nullptr);
    clickButton();
    clickButton();
    EXPECT_EQ (menu.getPopup(), nullptr);
    EXPECT_EQ (chosen, "manual ");
}

TEST_F (MenuControlTest, IsWalkedByTheArrowKeysAndLeavesOtherKeysToTheHost)
{
    const auto key = [this] (int code) { return window.pressKey (juce::KeyPress (code)); };
    menu.openPopup();
    EXPECT_TRUE (key (juce::KeyPress::downKey));
    EXPECT_TRUE (key (juce::KeyPress::downKey));
    EXPECT_EQ (menu.getPopup()->getHighlightedItem(), 2); // past the line
    EXPECT_TRUE (key (juce::KeyPress::downKey));
    EXPECT_EQ (menu.getPopup()->getHighlightedItem(), 4); // past the link to nowhere and the heading
    EXPECT_FALSE (key (juce::KeyPress::spaceKey));
    EXPECT_FALSE (key ('a'));
    EXPECT_TRUE (key (juce::KeyPress::returnKey));
    EXPECT_EQ (chosen, "site ");

    // The keyboard is the host's again.
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
    menu.openPopup();
    EXPECT_TRUE (key (juce::KeyPress::upKey));
    EXPECT_EQ (menu.getPopup()->getHighlightedItem(), 5);
    EXPECT_TRUE (key (juce::KeyPress::escapeKey));
    EXPECT_EQ (menu.getPopup(), nullptr);
}

TEST_F (MenuControlTest, EmptyingTheItemsClosesAndOtherItemsShow)
{
    menu.openPopup();
    menu.setItems ({ { "new", Kind::action, "New", {}, {}, {} } });
    ASSERT_NE (menu.getPopup(), nullptr);
    menu.setItems ({});
    EXPECT_EQ (menu.getPopup(), nullptr);
    EXPECT_FALSE (menu.isEnabled());
    clickButton();
    EXPECT_EQ (menu.getPopup(), nullptr);

    menu.setItems (exampleItems());
    menu.openPopup();
    menu.setVisible (false);
    EXPECT_EQ (menu.getPopup(), nullptr);
    menu.setVisible (true);
    menu.setItemHandler (nullptr);
    menu.openPopup();
    EXPECT_EQ (menu.getPopup(), nullptr);
}

TEST_F (MenuControlTest, TheListStaysInTheWindowWhereverTheButtonIs)
{
    for (const auto size : { juce::Point<int> (836, 429), { 1672, 858 }, { 3344, 1716 }, { 1000, 429 }, { 90, 40 } })
    {
        for (const auto place : { juce::Point<int> (1620, 18), { 1634, 0 }, { 0, 0 }, { 1634, 826 }, { 0, 826 } })
        {
            layOut (size.x, size.y);
            menu.setTopLeftPosition (place);
            menu.closePopup();
            menu.openPopup();
            EXPECT_TRUE (window.getLocalBounds().contains (menu.getPopup()->getListBounds()))
                << size.x << ", " << place.toString();
        }
    }

    // Open while the window grows: it goes with its button, and is as much larger.
    layOut (1672, 858);
    menu.setTopLeftPosition (1620, 18);
    const auto before = menu.getPopup()->getListBounds();
    layOut (3344, 1716);
    const auto after = menu.getPopup()->getListBounds();
    EXPECT_NEAR (after.getRight(), buttonInWindow().getRight(), 1);
    EXPECT_GT (after.getY(), buttonInWindow().getBottom());
    EXPECT_NEAR (after.getWidth(), 2 * before.getWidth(), 2);
}

TEST_F (MenuControlTest, TheHandlerMayReplaceTheItemsAndTheControlMayGoWhileOpen)
{
    menu.setItemHandler (
        [this] (const MenuItem& item)
        {
            menu.setItems ({});
            chosen << item.id;
            return false;
        });
    menu.openPopup();
    window.click (rowOf ("About"));
    EXPECT_EQ (chosen, "about");

    auto other = std::make_unique<MenuControl>();
    other->setItems (exampleItems());
    other->setItemHandler ([] (const MenuItem&) { return false; });
    content.addAndMakeVisible (*other);
    other->openPopup();
    const auto children = window.getNumChildComponents();
    other.reset();
    EXPECT_EQ (window.getNumChildComponents(), children - 1);
}

} // namespace
} // namespace kestreleq::test
