#include "tests/support/Components.h"
#include "tests/support/Window.h"

#include "ui_pro/controls/header/MenuControl.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;
using controls::MenuControl;
using controls::MenuItem;
using Kind = MenuItem::Kind;

std::vector<MenuItem> menuExamples()
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
        window.addAndMakeVisible (menu);
        menu.setTopLeftPosition (780, 10);
        menu.setItems (menuExamples());
        menu.setItemHandler (
            [this] (const MenuItem& item)
            {
                chosen << item.id << " ";
                return false;
            });
    }

    void clickButton() { window.click (menu.getBounds().getCentre()); }

    void clickRow (const juce::String& text) { window.click (middleOf (window, text)); }

    Window window { 836, 429 };
    MenuControl menu;
    juce::String chosen;
};

TEST_F (MenuControlTest, AClickOpensAndChoosingHandsTheItemOver)
{
    clickButton();
    ASSERT_NE (menu.getPopup(), nullptr);
    EXPECT_TRUE (menu.getAccessibilityHandler()->getCurrentState().isExpanded());
    EXPECT_NE (findTitled (window, "Help"), nullptr) << "the section's heading";
    clickRow ("Nowhere"); // a link that leads nowhere
    ASSERT_NE (menu.getPopup(), nullptr);
    clickRow ("Manual");
    EXPECT_EQ (menu.getPopup(), nullptr);
    EXPECT_EQ (chosen, "manual ");

    clickButton();
    clickButton();
    EXPECT_EQ (menu.getPopup(), nullptr);
}

} // namespace
} // namespace kestreleq::test
