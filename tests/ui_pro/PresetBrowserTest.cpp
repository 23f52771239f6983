#include "tests/support/Keys.h"
#include "tests/support/MessagePump.h"
#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"
#include "tests/support/Presets.h"
#include "tests/support/RepaintWatch.h"

#include "ui_pro/controls/presets/PresetBrowserPopup.h"
#include "ui_pro/controls/presets/PresetRow.h"

#include <gtest/gtest.h>

#include <array>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;
using presets::Hit;
using presets::Target;
using Key = juce::KeyPress;

/** A selector in its place on an editor's content, scaled with it. */
struct Rig
{
    explicit Rig (float scale = 1.0f)
    {
        editor.setSize (juce::roundToInt (1672.0f * scale), juce::roundToInt (858.0f * scale));
        editor.addAndMakeVisible (content);
        content.setSize (1672, 858);
        content.setTransform (juce::AffineTransform::scale (scale));
        content.addAndMakeVisible (*selector);
        selector->setBounds (1108, 18, 286, 32);
        selector->setBrowserParent (&content);
        selector->setEntries (factoryEntries());
        selector->setCurrentPreset (1, 6, "Vocal Presence");

        hooks.initialise = [this] { calls.add ("initialise"); };
        hooks.previous = [this] { calls.add ("previous"); };
        hooks.next = [this] { calls.add ("next"); };
        hooks.browserOpened = [this] { calls.add ("opened"); };
        hooks.load = [this] (int id) { calls.add ("load " + juce::String (id)); };
        selector->setHooks (hooks);
    }

    PresetSelector::BrowserPopup& popup() { return *selector->getBrowser(); }

    bool isOpen() const { return selector->getBrowser() != nullptr; }

    const PresetLibrary& library() const { return selector->getLibrary(); }

    int selected() const { return library().getSelectedId(); }

    void clickPart (int x)
    {
        auto& part = *selector->getComponentAt (x, 16);
        Mouse (part).click (part.getLocalBounds().getCentre().toFloat());
    }

    void clickPopup (float x, float y) { Mouse (popup()).click ({ x, y }); }

    /** Clicks a line of the open filter menu. */
    void clickMenu (int line)
    {
        auto& menu = *popup().getFilterMenu();
        Mouse (menu).click ({ 20.0f, 4.0f + 30.0f * static_cast<float> (line) + 15.0f });
    }

    juce::Component editor;
    juce::Component content;
    std::unique_ptr<PresetSelector> selector = std::make_unique<PresetSelector>();
    PresetSelector::Hooks hooks;
    juce::StringArray calls;
};

TEST (PresetSelector, LaysOutItsPartsAndShrinksThemFromTheRight)
{
    const auto wide = PresetSelector::Parts::within ({ 286, 32 });
    EXPECT_EQ (wide.initialise, juce::Rectangle<int> (0, 0, 56, 32));
    EXPECT_EQ (wide.previous, juce::Rectangle<int> (64, 0, 34, 32));
    EXPECT_EQ (wide.display, juce::Rectangle<int> (98, 0, 154, 32));
    EXPECT_EQ (wide.next, juce::Rectangle<int> (252, 0, 34, 32));

    const auto narrow = PresetSelector::Parts::within ({ 110, 32 });
    EXPECT_EQ (narrow.next, juce::Rectangle<int> (98, 0, 12, 32));
    EXPECT_EQ (narrow.display.getWidth(), 0);
    EXPECT_EQ (PresetSelector::Parts::within ({ 40, 32 }).initialise.getWidth(), 40);
}

TEST (PresetSelector, ItsPartsCallTheirHooksAndDoNothingWithoutOne)
{
    Rig rig;

    for (const auto x : { 10, 70, 270 })
        rig.clickPart (x);

    EXPECT_EQ (rig.calls.joinIntoString (","), "initialise,previous,next");
    rig.selector->setHooks ({});

    for (const auto x : { 10, 70, 270 })
    {
        rig.clickPart (x);
        EXPECT_FALSE (rig.selector->getComponentAt (x, 16)->isEnabled());
    }
    EXPECT_EQ (rig.calls.size(), 3);
    EXPECT_FALSE (rig.isOpen());
}

TEST (PresetBrowser, EveryTargetEndsAtItsEdges)
{
    struct Case
    {
        juce::Rectangle<int> area;
        Hit hit;
    };

    const std::array<Case, 18> cases { { { { 1008, 20, 28, 34 }, { Target::close } },
        { { 16, 92, 208, 34 }, { Target::collection, 0 } }, { { 16, 132, 208, 34 }, { Target::collection, 1 } },
        { { 16, 172, 208, 34 }, { Target::collection, 2 } }, { { 16, 212, 208, 34 }, { Target::collection, 3 } },
        { { 16, 252, 208, 34 }, { Target::collection, 4 } }, { { 238, 104, 570, 34 }, { Target::row, 0 } },
        { { 238, 614, 570, 4 }, { Target::row, 15 } }, { { 834, 427, 186, 34 }, { Target::action, 0 } },
        { { 834, 468, 186, 30 }, { Target::action, 1 } }, { { 834, 503, 186, 30 }, { Target::action, 2 } },
        { { 834, 538, 90, 30 }, { Target::action, 3 } }, { { 930, 538, 90, 30 }, { Target::action, 4 } },
        { { 834, 573, 90, 30 }, { Target::action, 5 } }, { { 930, 573, 90, 30 }, { Target::action, 6 } },
        { { 280, 20, 38, 34 }, { Target::filters } }, { { 338, 20, 150, 34 }, { Target::category } },
        { { 662, 20, 150, 34 }, { Target::sort } } } };

    for (const auto& [area, hit] : cases)
    {
        const auto last = area.getBottomRight().translated (-1, -1);
        EXPECT_EQ (presets::hitAt (area.getPosition()), hit) << area.toString();
        EXPECT_EQ (presets::hitAt (last), hit) << area.toString();

        for (const auto& outside : { area.getPosition().translated (-1, 0), area.getPosition().translated (0, -1),
                 last.translated (1, 0), last.translated (0, 1) })
            EXPECT_FALSE (presets::hitAt (outside) == hit) << area.toString() << " at " << outside.toString();
    }

    EXPECT_EQ (presets::actionAt ({ 834, 538 }), "DUPLICATE");
    EXPECT_EQ (presets::actionAt ({ 924, 538 }), "");
}

TEST (PresetBrowser, SearchesAndLoadsWithKeysAlone)
{
    Rig rig;
    auto& display = *rig.selector->getComponentAt (150, 16);
    ASSERT_TRUE (display.getWantsKeyboardFocus());
    EXPECT_FALSE (pressKey (display, Key (Key::spaceKey))) << "the host's transport key";
    pressKey (display, Key (Key::returnKey));
    ASSERT_TRUE (rig.isOpen());
    EXPECT_EQ (rig.calls.joinIntoString (","), "opened");

    auto& search = rig.popup().getSearchField();
    typeText (search, "air x");
    EXPECT_EQ (rig.popup().getStatusLine().getCountText(), "0 presets");
    pressKey (search, Key (Key::returnKey));
    ASSERT_TRUE (rig.isOpen()) << "nothing is selected";

    pressKey (search, Key (Key::backspaceKey));
    pressKey (search, Key (Key::backspaceKey));
    EXPECT_EQ (rig.popup().getStatusLine().getCountText(), "2 presets");
    EXPECT_EQ (rig.selected(), 3);
    pressKey (search, Key (Key::downKey));
    EXPECT_EQ (rig.popup().getStatusLine().getMarkText(), "Loaded");
    pressKey (search, Key (Key::upKey));
    EXPECT_EQ (rig.popup().getStatusLine().getMarkText(), "");

    pressKey (search, Key (Key::returnKey));
    EXPECT_FALSE (rig.isOpen());
    EXPECT_EQ (rig.calls.joinIntoString (","), "opened,load 3");
    pumpMessages (1); // what the search field still had posted

    pressKey (display, Key (Key::downKey));
    ASSERT_TRUE (rig.isOpen());
    EXPECT_EQ (rig.popup().getSearchField().getText(), "air");
    pressKey (rig.popup().getSearchField(), Key (Key::escapeKey));
    EXPECT_FALSE (rig.isOpen());
    EXPECT_EQ (rig.calls.size(), 3);
}

TEST (PresetBrowser, SelectsAndLoadsWithTheMouseAlone)
{
    Rig rig;
    rig.clickPart (150);
    ASSERT_TRUE (rig.isOpen());
    rig.clickPart (150);
    EXPECT_FALSE (rig.isOpen());
    rig.clickPart (150);

    rig.clickPopup (300, 104); // "Bass Boost" is the first row
    EXPECT_EQ (rig.selected(), 2);
    Mouse (rig.popup()).wheel ({ 500, 300 }, -0.25f);
    EXPECT_EQ (rig.selected(), 3);
    rig.clickPopup (300, 104 + 6 * 34);
    EXPECT_EQ (rig.selected(), 3) << "below the last row";

    rig.clickPopup (700, 30);
    EXPECT_TRUE (rig.library().isSortDescending());
    rig.clickPopup (700, 30);
    EXPECT_FALSE (rig.library().isSortDescending());

    rig.clickPopup (100, 260); // the last collection
    EXPECT_EQ (rig.popup().getStatusLine().getCountText(), "0 presets");
    EXPECT_EQ (rig.selected(), PresetLibrary::none);
    rig.clickPopup (900, 440);
    EXPECT_TRUE (rig.isOpen()) << "nothing to load";
    rig.clickPopup (100, 100);
    EXPECT_EQ (rig.selected(), 2);

    rig.clickPopup (1007.9f, 30);
    EXPECT_TRUE (rig.isOpen());
    rig.clickPopup (1008, 53.9f);
    EXPECT_FALSE (rig.isOpen());

    rig.clickPart (150);
    Mouse (rig.popup()).doubleClick ({ 300, 104 + 2 * 34 });
    EXPECT_FALSE (rig.isOpen());
    rig.clickPart (150);
    rig.clickPopup (300, 104 + 3 * 34);
    rig.clickPopup (900, 440);
    EXPECT_FALSE (rig.isOpen());
    EXPECT_EQ (rig.calls.joinIntoString (","), "opened,opened,opened,load 0,opened,load 5");
}

TEST (PresetBrowser, FiltersByMouseAndByKeys)
{
    Rig rig;
    auto entries = factoryEntries();
    entries[5].category = "Drums";
    entries[4].author = "Somebody";
    rig.selector->setEntries (entries);
    rig.selector->openBrowser();

    rig.clickPopup (400, 30);
    rig.clickMenu (1); // below "All"
    EXPECT_EQ (rig.library().getVisibleIds(), std::vector<int> { 5 });
    EXPECT_EQ (rig.popup().getFilterMenu(), nullptr);

    rig.clickPopup (400, 30);
    pressKey (*rig.popup().getFilterMenu(), Key (Key::upKey));
    pressKey (*rig.popup().getFilterMenu(), Key (Key::returnKey));
    EXPECT_EQ (rig.library().getCategoryFilter(), "All");

    rig.clickPopup (600, 30);
    rig.clickPopup (600, 30);
    EXPECT_EQ (rig.popup().getFilterMenu(), nullptr) << "the button closes its own menu";

    rig.clickPopup (300, 30); // both filters, under headings
    rig.clickMenu (0);
    ASSERT_NE (rig.popup().getFilterMenu(), nullptr) << "a heading cannot be chosen";
    rig.clickMenu (7);
    EXPECT_EQ (rig.library().getVisibleIds(), std::vector<int> { 4 });

    rig.clickPopup (600, 30);
    pressKey (rig.popup().getSearchField(), Key (Key::escapeKey));
    ASSERT_TRUE (rig.isOpen()) << "only the menu closes";
    EXPECT_EQ (rig.popup().getFilterMenu(), nullptr);
}

TEST (PresetBrowser, ActionsRunTheirHooksAndNothingElse)
{
    Rig rig;
    rig.selector->openBrowser();
    const std::array<juce::Point<float>, 6> buttons { { { 900, 480 }, { 900, 510 }, { 850, 550 }, { 950, 550 },
        { 850, 590 }, { 950, 590 } } };

    for (const auto& at : buttons)
        rig.clickPopup (at.x, at.y);

    EXPECT_TRUE (rig.isOpen());
    EXPECT_EQ (rig.calls.size(), 1);

    int called = 0;
    const std::array<std::function<void()> PresetSelector::Hooks::*, 6> hooks { &PresetSelector::Hooks::saveAs,
        &PresetSelector::Hooks::rename, &PresetSelector::Hooks::duplicate, &PresetSelector::Hooks::deletePreset,
        &PresetSelector::Hooks::importPresets, &PresetSelector::Hooks::exportPresets };

    for (std::size_t i = 0; i < hooks.size(); ++i)
        rig.hooks.*hooks[i] = [&called, i] { called = called * 10 + static_cast<int> (i) + 1; };

    rig.selector->setHooks (rig.hooks);

    for (const auto& at : buttons)
        rig.clickPopup (at.x, at.y);

    EXPECT_EQ (called, 123456);
    rig.selector->load (17);
    EXPECT_TRUE (rig.isOpen()) << "no such preset";
}

TEST (PresetBrowser, AHookMayDeleteTheSelector)
{
    Rig rig;
    rig.hooks.load = [&rig] (int) { rig.selector.reset(); };
    rig.selector->setHooks (rig.hooks);
    rig.selector->openBrowser();
    pressKey (rig.popup().getSearchField(), Key (Key::returnKey));
    EXPECT_EQ (rig.selector, nullptr);
    EXPECT_EQ (rig.content.getNumChildComponents(), 0);
}

TEST (PresetBrowser, StaysInTheWindowAtTheSelectorsScale)
{
    for (const auto scale : { 0.5f, 1.0f, 1.35f, 2.0f })
    {
        for (const auto onContent : { true, false })
        {
            Rig rig (1.0f);
            rig.selector->setBrowserParent (onContent ? &rig.content : &rig.editor);
            rig.selector->openBrowser();
            rig.editor.setSize (juce::roundToInt (1672.0f * scale), juce::roundToInt (858.0f * scale));
            rig.content.setTransform (juce::AffineTransform::scale (scale)); // while it is open
            const auto area = rig.editor.getLocalArea (&rig.popup(), rig.popup().getLocalBounds().toFloat());
            EXPECT_NEAR (area.getWidth(), 1052.0f * scale, 1.0f) << scale;
            EXPECT_NEAR (area.getRight(), 1394.0f * scale, 1.0f) << scale;
            EXPECT_NEAR (area.getY(), 58.0f * scale, 1.0f) << scale;
        }
    }

    Rig rig;
    rig.content.setSize (700, 400);
    rig.selector->setTopLeftPosition (414, 18);
    rig.selector->openBrowser();
    EXPECT_TRUE (rig.content.getLocalBounds().contains (rig.popup().getBoundsInParent()));
}

TEST (PresetBrowser, ALongListScrollsToTheSelection)
{
    Rig rig;
    std::vector<PresetEntry> entries (40);

    for (std::size_t i = 0; i < entries.size(); ++i)
    {
        entries[i].id = static_cast<int> (i);
        entries[i].name = juce::String (i + 100);
    }

    rig.selector->setEntries (entries);
    rig.selector->openBrowser();
    auto& search = rig.popup().getSearchField();
    pressKey (search, Key (Key::pageDownKey));
    pressKey (search, Key (Key::pageDownKey));
    EXPECT_EQ (rig.selected(), 31);
    rig.clickPopup (300, 104);
    EXPECT_EQ (rig.selected(), 17) << "the first of fifteen rows that end with the selected one";
    rig.clickPopup (300, 104 + 34);
    EXPECT_EQ (rig.selected(), 18) << "a click on a row in view scrolls nothing";
}

TEST (PresetBrowser, SpeaksToScreenReaders)
{
    Rig rig;
    auto& display = dynamic_cast<PresetSelectorButton&> (*rig.selector->getComponentAt (150, 16));
    const auto handler = display.createAccessibilityHandler();
    EXPECT_EQ (handler->getRole(), juce::AccessibilityRole::comboBox);
    EXPECT_EQ (handler->getTitle(), "Preset");
    EXPECT_EQ (handler->getValueInterface()->getCurrentValueAsString(), "02  Vocal Presence");
    handler->getActions().invoke (juce::AccessibilityActionType::press);
    ASSERT_TRUE (rig.isOpen());

    auto& row = dynamic_cast<PresetRow&> (*rig.popup().getTable().getChildComponent (2));
    const auto rowHandler = row.createAccessibilityHandler();
    EXPECT_EQ (rowHandler->getRole(), juce::AccessibilityRole::listItem);
    EXPECT_EQ (rowHandler->getTitle(), "Flat");
    EXPECT_FALSE (rowHandler->getCurrentState().isSelected());
    rowHandler->getActions().invoke (juce::AccessibilityActionType::press);
    EXPECT_EQ (rig.selected(), 0);
    EXPECT_TRUE (rowHandler->getCurrentState().isSelected());
}

TEST (PresetBrowser, RepaintsOnlyWhatChanges)
{
    Rig rig;
    rig.selector->openBrowser();
    RepaintWatch repaints (rig.popup());

    rig.selector->setEntries (factoryEntries());
    rig.selector->setCurrentPreset (1, 6, "Vocal Presence");
    rig.selector->select (1);
    rig.selector->setCollection (0);
    Mouse (rig.popup()).move ({ 900, 300 });
    EXPECT_EQ (repaints.takeCount(), 0);

    Mouse (rig.popup()).move ({ 300, 120 });
    const auto row = repaints.takeArea();
    EXPECT_EQ (row.getWidth() * row.getHeight(), 570 * 34) << "one row lit";
    rig.selector->select (0);
    EXPECT_FALSE (repaints.takeArea().contains (rig.popup().getLocalBounds()));
}

TEST (PresetBrowser, LooksAsStored)
{
    Rig rig (0.5f); // as the window opens
    rig.selector->openBrowser();
    rig.selector->setSearchText ("air");
    rig.selector->setSortDescending (true);
    EXPECT_FALSE (looksAsStored (rig.editor, "preset-browser")) << "rows the other way round";
    rig.selector->setSortDescending (false);
    EXPECT_TRUE (looksAsStored (rig.editor, "preset-browser"));
}

} // namespace
} // namespace kestreleq::test
