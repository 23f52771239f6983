#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"

#include "ui_pro/controls/header/ABControl.h"
#include "ui_pro/controls/header/CopyPasteControl.h"
#include "ui_pro/controls/header/EditorCommandController.h"
#include "ui_pro/controls/header/MenuControl.h"
#include "ui_pro/controls/header/UndoRedoControl.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;

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

TEST (UndoRedoControl, FollowsItsActionsAndItsPredicates)
{
    Actions actions;
    UndoRedoControl control;
    EXPECT_EQ (control.getWidth(), 78); // the slot in the header
    EXPECT_FALSE (control.isUndoEnabled());
    control.undo();

    control.setActions (actions.make());
    EXPECT_TRUE (control.isUndoEnabled());
    EXPECT_FALSE (control.isRedoEnabled());

    Mouse mouse (control);
    mouse.click ({ 60, 16 }); // redo has nothing to do
    mouse.click ({ 39, 16 }); // between the two
    EXPECT_EQ (actions.calls, "");
    mouse.click ({ 10, 16 });
    EXPECT_EQ (actions.calls, "undo ");
    EXPECT_FALSE (control.isUndoEnabled());
    EXPECT_TRUE (control.isRedoEnabled());

    mouse.down ({ 60, 16 }); // thinks again and lets go elsewhere
    mouse.drag ({ 60, 50 });
    mouse.up ({ 60, 50 });
    mouse.down ({ 60, 16 }, juce::ModifierKeys::rightButtonModifier);
    mouse.up ({ 60, 16 });
    EXPECT_EQ (actions.calls, "undo ");
    mouse.click ({ 60, 16 });
    EXPECT_EQ (actions.calls, "undo redo ");

    mouse.move ({ 10, 16 });
    EXPECT_EQ (control.getTooltip(), "Move knob");
    mouse.move ({ 60, 16 });
    EXPECT_EQ (control.getTooltip(), ""); // no name is set
    EXPECT_FALSE (control.getWantsKeyboardFocus());

    auto unpredicated = actions.make();
    unpredicated.canUndo = nullptr;
    control.setActions (unpredicated);
    EXPECT_FALSE (control.isUndoEnabled());
}

TEST (CopyPasteControl, HasAGapThatBelongsToNeitherPart)
{
    using Part = ToolPair::Part;
    Actions actions;
    CopyPasteControl control;
    control.setActions (actions.make());

    for (const auto& [x, y, part] : { std::tuple { 0, 0, Part::first }, { 19, 31, Part::first }, { 20, 0, Part::none },
             { 23, 31, Part::none }, { 24, 0, Part::second }, { 43, 31, Part::second }, { 44, 5, Part::none },
             { 5, 32, Part::none }, { -1, 5, Part::none } })
        EXPECT_EQ (control.partAt ({ x, y }), part) << x << ", " << y;

    Mouse mouse (control);
    mouse.move ({ 30, 10 });
    EXPECT_EQ (control.getHoveredPart(), Part::second);
    EXPECT_EQ (control.getTooltip(), "Paste settings");
    mouse.click ({ 21, 10 });
    EXPECT_EQ (control.getHoveredPart(), Part::none);
    EXPECT_EQ (actions.calls, "");

    mouse.click ({ 30, 10 });
    EXPECT_EQ (actions.calls, "");
    mouse.click ({ 5, 10 });
    EXPECT_EQ (control.getTooltip(), "Copy");
    mouse.click ({ 30, 10 });
    EXPECT_EQ (actions.calls, "copy paste ");
    mouse.exit ({ 50, 10 });
    EXPECT_EQ (control.getHoveredPart(), Part::none);
}

TEST (ABControl, ShowsWhatTheOwnerReports)
{
    auto current = ABSlot::A;
    auto enabled = true;
    auto obeys = true;
    std::vector<ABSlot> selected;
    ABControl control;
    control.setCallbacks ({ [&] { return current; },
        [&] (ABSlot slot)
        {
            selected.push_back (slot);
            if (obeys)
                current = slot;
        },
        [&] { return enabled; } });

    Mouse mouse (control);
    mouse.down ({ 35, 10 }); // between the two
    mouse.up ({ 35, 10 });
    EXPECT_TRUE (selected.empty());
    mouse.down ({ 42, 0 });
    EXPECT_EQ (control.getSlot(), ABSlot::B);
    mouse.up ({ 42, 0 });
    EXPECT_EQ (selected.size(), 1u); // once a press

    obeys = false;
    mouse.click ({ 27, 31 });
    EXPECT_EQ (selected.back(), ABSlot::A);
    EXPECT_EQ (control.getSlot(), ABSlot::B); // the owner stayed

    enabled = false;
    mouse.click ({ 5, 5 });
    EXPECT_EQ (selected.size(), 2u);
    EXPECT_FALSE (control.isEnabled());

    control.setSlot (ABSlot::A); // tells nobody
    EXPECT_EQ (selected.size(), 2u);
}

TEST (HeaderTools, AreReadAndPressedByAScreenReader)
{
    ABControl ab;
    ab.setSlot (ABSlot::B);
    ASSERT_EQ (ab.getNumChildComponents(), 2);
    const auto b = ab.getChildComponent (1)->createAccessibilityHandler();
    EXPECT_EQ (b->getTitle(), "Settings B");
    EXPECT_EQ (b->getRole(), juce::AccessibilityRole::radioButton);
    EXPECT_TRUE (b->getCurrentState().isChecked());

    Actions actions;
    UndoRedoControl undoRedo;
    undoRedo.setActions (actions.make());
    const auto undo = undoRedo.getChildComponent (0)->createAccessibilityHandler();
    EXPECT_EQ (undo->getTitle(), "Undo");
    EXPECT_TRUE (undo->getActions().invoke (juce::AccessibilityActionType::press));
    EXPECT_EQ (actions.calls, "undo ");
}

TEST (HeaderTools, LookAsStored)
{
    Actions actions;
    UndoRedoControl undoRedo;
    undoRedo.setActions (actions.make());
    CopyPasteControl copyPaste;
    copyPaste.setActions (actions.make());
    Mouse (copyPaste).move ({ 5, 10 });
    ABControl ab;
    MenuControl menu;

    juce::Component row;
    row.setSize (254, 32);
    auto x = 0;

    for (auto* tool : std::initializer_list<juce::Component*> { &undoRedo, &copyPaste, &ab, &menu })
    {
        row.addAndMakeVisible (tool);
        tool->setTopLeftPosition (x, 0);
        x = tool->getRight() + 8;
    }

    EXPECT_EQ (x - 8, row.getWidth());
    EXPECT_TRUE (looksAsStored (row, "header-tools"));
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
        // What an action does may not decide about the key.
        for (const auto possible : { true, false })
        {
            Actions actions;
            auto set = actions.make();
            set.canUndo = set.canRedo = set.canCopy = set.canPaste = [possible] { return possible; };
            controller.setActions (set);
            EXPECT_EQ (forwarder.keyPressed (row.key, nullptr), row.taken) << row.key.getTextDescription();
            EXPECT_EQ (actions.calls, possible ? row.called : "") << row.key.getTextDescription();
        }

        // A shortcut needs no predicate, and is taken even without an action.
        Actions actions;
        auto set = actions.make();
        set.canUndo = set.canRedo = set.canCopy = set.canPaste = nullptr;
        controller.setActions (set);
        forwarder.keyPressed (row.key, nullptr);
        EXPECT_EQ (actions.calls, row.called) << row.key.getTextDescription();
        controller.setActions ({});
        EXPECT_EQ (forwarder.keyPressed (row.key, nullptr), row.taken) << row.key.getTextDescription();
    }

    EXPECT_FALSE (forwarder.keyStateChanged (true, nullptr));
}

TEST (EditorCommandController, AShortcutRefreshesTheButtons)
{
    Actions actions;
    UndoRedoControl undoRedo;
    CopyPasteControl copyPaste;
    EditorCommandController controller (undoRedo, copyPaste);
    controller.setActions (actions.make());

    controller.handleKey (juce::KeyPress ('z', juce::ModifierKeys::commandModifier, 0));
    EXPECT_TRUE (undoRedo.isRedoEnabled());
    EXPECT_FALSE (copyPaste.isPasteEnabled());
    controller.handleKey (juce::KeyPress ('c', juce::ModifierKeys::commandModifier, 0));
    EXPECT_TRUE (copyPaste.isPasteEnabled());
}

} // namespace
} // namespace kestreleq::test
