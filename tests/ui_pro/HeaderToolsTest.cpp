#include "tests/support/Mouse.h"
#include "tests/support/Window.h"

#include "ui_pro/controls/header/ABControl.h"
#include "ui_pro/controls/header/CopyPasteControl.h"
#include "ui_pro/controls/header/EditorCommandController.h"
#include "ui_pro/controls/header/UndoRedoControl.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;
using Part = ToolPair::Part;

/** Actions that write down what was called; a history with one step to undo. */
struct Actions
{
    EditorActions make()
    {
        EditorActions actions;
        actions.canUndo = [this] { return undoable; };
        actions.canRedo = [this] { return ! undoable; };
        actions.undo = [this]
        {
            calls << "undo ";
            undoable = false;
        };
        actions.redo = [this]
        {
            calls << "redo ";
            undoable = true;
        };
        actions.undoName = [] { return juce::String ("Move knob"); };
        actions.canCopy = [] { return true; };
        actions.canPaste = [this] { return pasteable; };
        actions.copy = [this]
        {
            calls << "copy ";
            pasteable = true;
        };
        actions.paste = [this] { calls << "paste "; };
        actions.pasteCaption = [] { return juce::String ("Paste settings"); };
        return actions;
    }

    bool undoable = true;
    bool pasteable = false;
    juce::String calls;
};

/** A window with a pair of tools in its corner. */
template <typename Control>
struct PairRig
{
    PairRig() { window.addAndMakeVisible (control); }

    Actions actions;
    Control control;
    Window window { 100, 60 };
};

TEST (ABControl, ShowsWhatTheOwnerReports)
{
    auto current = ABSlot::A;
    auto enabled = true;
    auto obeys = true;
    std::vector<ABSlot> selected;
    PairRig<ABControl> rig;
    auto& control = rig.control;
    control.setCallbacks ({ [&] { return current; },
        [&] (ABSlot slot)
        {
            selected.push_back (slot);
            if (obeys)
                current = slot;
        },
        [&] { return enabled; } });

    rig.window.click ({ 35, 10 }); // between the two
    EXPECT_TRUE (selected.empty());
    Mouse b (control.getButton (Part::second));
    b.down ({ 0, 0 });
    EXPECT_EQ (control.getSlot(), ABSlot::B);
    EXPECT_TRUE (control.getButton (Part::second).createAccessibilityHandler()->getCurrentState().isChecked());
    b.up ({ 0, 0 });
    EXPECT_EQ (selected.size(), 1u); // once a press

    obeys = false;
    rig.window.click ({ 27, 31 });
    EXPECT_EQ (selected.back(), ABSlot::A);
    EXPECT_EQ (control.getSlot(), ABSlot::B); // the owner stayed

    enabled = false;
    rig.window.click ({ 5, 5 });
    EXPECT_EQ (selected.size(), 2u);
    EXPECT_FALSE (control.isEnabled());

    control.setSlot (ABSlot::A); // tells nobody
    EXPECT_EQ (selected.size(), 2u);
}

struct KeyRow
{
    juce::KeyPress key;
    const char* called;
    bool taken;
};

TEST (EditorCommandController, TakesItsShortcutsAndLeavesEveryOtherKeyToTheHost)
{
    constexpr auto command = juce::ModifierKeys::commandModifier;
    constexpr auto shift = juce::ModifierKeys::shiftModifier;
    constexpr auto alt = juce::ModifierKeys::altModifier;
    const auto key = [] (int code, int modifiers = 0)
    { return juce::KeyPress (code, juce::ModifierKeys (modifiers), 0); };

    const KeyRow rows[] { { key ('z', command), "undo ", true }, { key ('Z', command), "undo ", true },
        { key (26, command), "undo ", true }, { key ('Z', command | shift), "redo ", true },
        { key (26, command | shift), "redo ", true }, { key ('y', command), "redo ", true },
        { key (25, command | shift), "redo ", true }, { key ('C', command), "copy ", true },
        { key (3, command), "copy ", true }, { key ('v', command), "paste ", true },
        { key (22, command), "paste ", true },
        { key ('z', command | juce::ModifierKeys::leftButtonModifier), "undo ", true },
        // The host's.
        { key ('c', command | shift), "", false }, { key ('v', command | shift), "", false },
        { key ('z', command | alt), "", false }, { key ('z'), "", false }, { key ('z', shift), "", false },
        { key ('x', command), "", false }, { key ('s', command), "", false },
        { key (juce::KeyPress::spaceKey), "", false }, { key (juce::KeyPress::spaceKey, command), "", false },
        { key (juce::KeyPress::returnKey), "", false }, { key (juce::KeyPress::escapeKey), "", false },
        { key (juce::KeyPress::tabKey, command), "", false }, { key (juce::KeyPress::F1Key, command), "", false },
        { key (juce::KeyPress::leftKey), "", false }, { key (juce::KeyPress::playKey), "", false } };

    UndoRedoControl undoRedo;
    CopyPasteControl copyPaste;
    EditorCommandController controller (undoRedo, copyPaste);
    auto& forwarder = controller.getKeyForwarder();

    for (const auto& row : rows)
    {
        for (const auto possible : { true, false })
        {
            Actions actions;
            auto set = actions.make();
            set.canUndo = set.canRedo = set.canCopy = set.canPaste = [possible] { return possible; };
            controller.setActions (set);
            EXPECT_EQ (forwarder.keyPressed (row.key, nullptr), row.taken)
                << row.key.getTextDescription() << ", whether the action is possible or not";
            EXPECT_EQ (actions.calls, possible ? row.called : "") << row.key.getTextDescription();
        }
    }

    EXPECT_FALSE (forwarder.keyStateChanged (true, nullptr));
}

} // namespace
} // namespace kestreleq::test
