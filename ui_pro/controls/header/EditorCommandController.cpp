#include "ui_pro/controls/header/EditorCommandController.h"

#include "ui_pro/controls/header/CopyPasteControl.h"
#include "ui_pro/controls/header/UndoRedoControl.h"

#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

/** Some hosts send a control character instead of the letter. */
juce::juce_wchar letterOf (const juce::KeyPress& key)
{
    switch (const auto code = key.getKeyCode(); code)
    {
        case 3:
            return 'c';
        case 22:
            return 'v';
        case 25:
            return 'y';
        case 26:
            return 'z';
        default:
            return juce::CharacterFunctions::toLowerCase (static_cast<juce::juce_wchar> (code));
    }
}

/** A shortcut needs no predicate: it then acts whenever there is an action. */
void run (const std::function<void()>& action, const std::function<bool()>& predicate)
{
    if (action != nullptr && (predicate == nullptr || predicate()))
        action();
}

} // namespace

EditorCommandController::EditorCommandController (UndoRedoControl& undoRedo, CopyPasteControl& copyPaste)
    : undoRedoControl (undoRedo),
      copyPasteControl (copyPaste)
{
}

void EditorCommandController::setActions (EditorActions newActions)
{
    actions = std::move (newActions);
    undoRedoControl.setActions (actions);
    copyPasteControl.setActions (actions);
}

void EditorCommandController::refresh()
{
    undoRedoControl.refresh();
    copyPasteControl.refresh();
}

bool EditorCommandController::handleKey (const juce::KeyPress& key)
{
    const auto held = key.getModifiers().withoutMouseButtons();

    if (! held.isCommandDown() || held.isAltDown())
        return false;

    const auto letter = letterOf (key);
    const auto shift = held.isShiftDown();

    if (letter == 'z' && ! shift)
        run (actions.undo, actions.canUndo);
    else if (letter == 'y' || letter == 'z')
        run (actions.redo, actions.canRedo);
    else if (letter == 'c' && ! shift)
        run (actions.copy, actions.canCopy);
    else if (letter == 'v' && ! shift)
        run (actions.paste, actions.canPasteNow != nullptr ? actions.canPasteNow : actions.canPaste);
    else
        return false;

    refresh();
    return true;
}

} // namespace quillon::ui_pro::controls
