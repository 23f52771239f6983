#include "ui_pro/controls/header/CopyPasteControl.h"
#include "ui_pro/controls/header/EditorCommandController.h"
#include "ui_pro/controls/header/UndoRedoControl.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;

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

    const KeyRow rows[] { { key ('z', command), "undo", true }, { key ('Z', command), "undo", true },
        { key (26, command), "undo", true }, { key ('Z', command | shift), "redo", true },
        { key (26, command | shift), "redo", true }, { key ('y', command), "redo", true },
        { key (25, command | shift), "redo", true }, { key ('C', command), "copy", true },
        { key (3, command), "copy", true }, { key ('v', command), "paste", true }, { key (22, command), "paste", true },
        { key ('z', command | juce::ModifierKeys::leftButtonModifier), "undo", true },
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
            juce::String called;
            const auto call = [&called] (const char* name) { return [&called, name] { called << name; }; };
            EditorActions actions;
            actions.canUndo = actions.canRedo = actions.canCopy = actions.canPaste = [possible] { return possible; };
            actions.undo = call ("undo");
            actions.redo = call ("redo");
            actions.copy = call ("copy");
            actions.paste = call ("paste");
            controller.setActions (actions);
            EXPECT_EQ (forwarder.keyPressed (row.key, nullptr), row.taken)
                << row.key.getTextDescription() << ", whether the action is possible or not";
            EXPECT_EQ (called, possible ? row.called : "") << row.key.getTextDescription();
        }
    }

    EXPECT_FALSE (forwarder.keyStateChanged (true, nullptr));
}

} // namespace
} // namespace kestreleq::test
