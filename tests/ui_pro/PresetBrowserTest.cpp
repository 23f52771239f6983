#include "tests/support/Components.h"
#include "tests/support/MessagePump.h"
#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"
#include "tests/support/Presets.h"
#include "tests/support/Window.h"

#include "ui_pro/controls/presets/PresetBrowserPopup.h"

#include <gtest/gtest.h>

#include <array>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;
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

        hooks.browserOpened = [this] { calls.add ("opened"); };
        hooks.load = [this] (int id) { calls.add ("load " + juce::String (id)); };
        selector->setHooks (hooks);
    }

    PresetSelector::BrowserPopup& popup() { return *selector->getBrowser(); }

    bool isOpen() const { return selector->getBrowser() != nullptr; }

    const PresetLibrary& library() const { return selector->getLibrary(); }

    int selected() const { return library().getSelectedId(); }

    void clickPart (int x) { editor.click (editor.getLocalPoint (selector.get(), juce::Point<int> (x, 16))); }

    void clickPopup (int x, int y) { editor.click (editor.getLocalPoint (&popup(), juce::Point<int> (x, y))); }

    /** Clicks a row of the open filter list. */
    void clickList (const juce::String& text)
    {
        ASSERT_NE (openList(), nullptr);
        editor.click (middleOf (*openList(), text));
        editor.moveMouse ({ 5, 5 });
    }

    quillon::ui_pro::primitives::DropDownList* openList()
    {
        return quillon::ui_pro::primitives::DropDownList::findOpenIn (editor);
    }

    bool press (int key) { return editor.pressKey (Key (key)); }

    void type (const juce::String& text)
    {
        for (const auto character : text)
            editor.pressKey (Key (static_cast<int> (character), {}, character));
    }

    Window editor { 1, 1 };
    juce::Component content;
    std::unique_ptr<PresetSelector> selector = std::make_unique<PresetSelector>();
    PresetSelector::Hooks hooks;
    juce::StringArray calls;
};

TEST (PresetBrowser, SearchesAndLoadsWithKeysAlone)
{
    Rig rig;
    auto& display = *rig.selector->getComponentAt (150, 16);
    display.grabKeyboardFocus();
    rig.press (Key::returnKey);
    ASSERT_TRUE (rig.isOpen());
    EXPECT_EQ (rig.calls.joinIntoString (","), "opened");

    rig.type ("air x");
    EXPECT_EQ (rig.popup().getStatusLine().getCountText(), "0 presets");
    rig.press (Key::returnKey);
    ASSERT_TRUE (rig.isOpen()) << "nothing is selected";

    rig.press (Key::backspaceKey);
    rig.press (Key::backspaceKey);
    EXPECT_EQ (rig.popup().getStatusLine().getCountText(), "2 presets");
    EXPECT_EQ (rig.selected(), 3);

    rig.press (Key::returnKey);
    EXPECT_FALSE (rig.isOpen());
    EXPECT_EQ (rig.calls.joinIntoString (","), "opened,load 3");
    EXPECT_TRUE (display.hasKeyboardFocus (false));
    pumpMessages (1); // what the search field still had posted

    rig.press (Key::downKey);
    ASSERT_TRUE (rig.isOpen());
    EXPECT_EQ (rig.popup().getSearchField().getText(), "") << "each search begins anew";
    rig.press (Key::escapeKey);
    EXPECT_FALSE (rig.isOpen());
    EXPECT_EQ (rig.calls.size(), 3);
}

TEST (PresetBrowser, SelectsAndLoadsWithTheMouseAlone)
{
    Rig rig;
    rig.clickPart (150);
    ASSERT_TRUE (rig.isOpen());

    rig.clickPopup (300, 104); // "Bass Boost" is the first row
    EXPECT_EQ (rig.selected(), 2);
    Mouse (rig.popup().getTable()).wheel ({ 500, 300 }, -0.25f);
    EXPECT_EQ (rig.selected(), 3);

    for (int i = 0; i < 5; ++i) // a trackpad: two rows and a bit, and back
        Mouse (rig.popup().getTable()).wheel ({ 500, 300 }, -0.05f, true);
    EXPECT_EQ (rig.selected(), 5);
    Mouse (rig.popup().getTable()).wheel ({ 500, 300 }, 0.27f, true);
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

    rig.clickPopup (1008, 53);
    EXPECT_FALSE (rig.isOpen());

    rig.clickPart (150);
    const auto row = rig.editor.getLocalPoint (&rig.popup(), juce::Point<int> (300, 104 + 2 * 34));
    auto* const shown = rig.editor.getComponentAt (row);
    Mouse (*shown).doubleClick ({ 60, 5 });
    EXPECT_FALSE (rig.isOpen());
    rig.clickPart (150);
    rig.clickPopup (300, 104 + 3 * 34);
    rig.clickPopup (900, 440);
    EXPECT_FALSE (rig.isOpen());
    EXPECT_EQ (rig.calls.joinIntoString (","), "opened,opened,load 0,opened,load 5");
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr) << "the host's again";
}

/** As when the system gives a clicked window its keyboard late, and the window hands it to what had it last. */
TEST (PresetBrowser, TakesTheKeyboardAgainFromWhatIsBehindIt)
{
    Rig rig;
    rig.selector->openBrowser();
    pumpMessages (1);
    rig.selector->getComponentAt (150, 16)->grabKeyboardFocus();
    pumpMessages (20);
    EXPECT_TRUE (rig.popup().hasKeyboardFocus (true));
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
    rig.clickList ("Drums");
    EXPECT_EQ (rig.library().getVisibleIds(), std::vector<int> { 5 });
    EXPECT_EQ (rig.openList(), nullptr);
    EXPECT_TRUE (rig.popup().getSearchField().hasKeyboardFocus (true));

    rig.clickPopup (400, 30);
    rig.press (Key::upKey);
    rig.press (Key::returnKey);
    EXPECT_EQ (rig.library().getCategoryFilter(), "All");

    rig.clickPopup (300, 30); // both filters, under headings
    EXPECT_NE (findTitled (*rig.openList(), "CATEGORY"), nullptr);
    rig.clickList ("Somebody");
    EXPECT_EQ (rig.library().getVisibleIds(), std::vector<int> { 4 });

    auto& author = rig.popup().getFilter (PresetSelector::BrowserPopup::author);
    EXPECT_EQ (author.getAccessibilityHandler()->getValueInterface()->getCurrentValueAsString(), "Somebody");
    author.grabKeyboardFocus();
    rig.press (Key::spaceKey);
    ASSERT_TRUE (pumpMessagesUntil ([&] { return rig.openList() != nullptr; }, 2000));
    rig.press (Key::escapeKey);
    ASSERT_TRUE (rig.isOpen()) << "only the list closes";
    EXPECT_EQ (rig.openList(), nullptr);
    EXPECT_TRUE (author.hasKeyboardFocus (false));

    rig.clickPopup (600, 30); // goes away with its list open
    rig.selector->setVisible (false);
    EXPECT_FALSE (rig.isOpen());
    EXPECT_EQ (rig.openList(), nullptr);
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
}

TEST (PresetBrowser, OpensOnWhatIsInForceAndABareReturnLoadsNothing)
{
    Rig rig;
    rig.selector->openBrowser();
    EXPECT_EQ (rig.selected(), 1);
    rig.press (Key::upKey);
    rig.selector->setCollection (4); // without any preset
    rig.selector->closeBrowser();
    rig.selector->setCurrentPreset (2, 6, "Bass Boost"); // from elsewhere
    rig.selector->setSearchText ("air");

    rig.selector->openBrowser();
    EXPECT_EQ (rig.selected(), 2);
    EXPECT_EQ (rig.popup().getSearchField().getText(), "") << "what hid it is gone";
    rig.press (Key::returnKey);
    EXPECT_FALSE (rig.isOpen());
    EXPECT_FALSE (rig.calls.joinIntoString (",").contains ("load")) << "edits since then are kept";

    rig.selector->openBrowser();
    rig.clickPopup (900, 440);
    EXPECT_EQ (rig.calls[rig.calls.size() - 1], "load 2") << "the button loads it anew";

    auto entries = factoryEntries();
    entries[1].isLoaded = false;
    rig.selector->setEntries (entries);
    rig.selector->setCurrentPreset (6, 7, "Custom"); // what sounds is none of them
    rig.selector->openBrowser();
    EXPECT_EQ (rig.selected(), PresetLibrary::none);
    rig.press (Key::returnKey);
    EXPECT_TRUE (rig.isOpen());
    rig.press (Key::downKey);
    EXPECT_EQ (rig.selected(), 2) << "the first";
}

TEST (PresetBrowser, TheSearchFieldKeepsItsEditingKeysAndLeavesOthers)
{
    Rig rig;
    rig.selector->openBrowser();
    constexpr auto command = juce::ModifierKeys::commandModifier;

    for (const auto letter : { 'z', 'y', 'x', 'v', 'a' }) // the field is empty
        EXPECT_TRUE (rig.editor.pressKey (Key (letter, juce::ModifierKeys (command), 0))) << letter;

    EXPECT_TRUE (rig.editor.pressKey (Key (26, juce::ModifierKeys (command), 0)));
    EXPECT_TRUE (rig.press (Key::deleteKey));
    EXPECT_FALSE (rig.editor.pressKey (Key ('s', juce::ModifierKeys (command), 0))) << "the host's";
    EXPECT_FALSE (rig.press (Key::F1Key));
}

TEST (PresetBrowser, StaysInTheWindowAtTheSelectorsScale)
{
    for (const auto scale : { 0.5f, 1.0f, 1.35f, 2.0f })
    {
        Rig rig (1.0f);
        rig.selector->openBrowser();
        rig.editor.setSize (juce::roundToInt (1672.0f * scale), juce::roundToInt (858.0f * scale));
        rig.content.setTransform (juce::AffineTransform::scale (scale)); // while it is open
        const auto area = rig.editor.getLocalArea (&rig.popup(), rig.popup().getLocalBounds().toFloat());
        EXPECT_NEAR (area.getWidth(), 1052.0f * scale, 1.0f) << scale;
        EXPECT_NEAR (area.getRight(), 1394.0f * scale, 1.0f) << scale;
        EXPECT_NEAR (area.getY(), 58.0f * scale, 1.0f) << scale;
    }

    for (const auto width : { 700, 1672 })
    {
        Rig rig;
        rig.content.setSize (width, 400);
        rig.selector->setTopLeftPosition (width == 700 ? 414 : 20, 18);
        rig.selector->openBrowser();
        EXPECT_TRUE (rig.content.getLocalBounds().contains (rig.popup().getBoundsInParent()));
    }
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
    rig.press (Key::pageDownKey);
    rig.press (Key::pageDownKey);
    EXPECT_EQ (rig.selected(), 31);
    rig.clickPopup (300, 104);
    EXPECT_EQ (rig.selected(), 17) << "the first of fifteen rows that end with the selected one";
    rig.clickPopup (300, 104 + 34);
    EXPECT_EQ (rig.selected(), 18) << "a click on a row in view scrolls nothing";
}

TEST (PresetBrowser, SpeaksToScreenReaders)
{
    Rig rig;
    rig.selector->openBrowser();
    const auto rows = rig.popup().getTable().getAccessibilityHandler()->getChildren();
    ASSERT_EQ (rows.size(), 6u);
    EXPECT_EQ (rows[2]->getTitle(), "Flat, Factory, Quillon, Kestrel");
    EXPECT_EQ (rows[5]->getTitle(), "Vocal Presence, Factory, Quillon, Kestrel, Loaded");
    rows[2]->getActions().invoke (juce::AccessibilityActionType::press);
    EXPECT_EQ (rig.selected(), 0);
    EXPECT_TRUE (rows[2]->getCurrentState().isSelected());
    rows[2]->getActions().invoke (juce::AccessibilityActionType::toggle);
    EXPECT_TRUE (rows[2]->getCurrentState().isSelected()) << "only another choice ends one";
    EXPECT_TRUE (rig.isOpen());

    juce::StringArray heard;
    rig.popup().announce = [&heard] (const juce::String& text) { heard.add (text); };
    rig.press (Key::downKey);
    rig.type ("ai");
    EXPECT_EQ (heard.joinIntoString ("|"), "Lo-Fi Crunch, Factory, Quillon, Kestrel|6 presets|2 presets");
}

} // namespace
} // namespace kestreleq::test
