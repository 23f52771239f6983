#pragma once

#include <juce_core/juce_core.h>

#include <functional>

namespace quillon::ui_pro::controls
{

/** What undo and redo mean to the owner; any may be unset. */
struct UndoActions
{
    std::function<bool()> canUndo;
    std::function<bool()> canRedo;
    std::function<void()> undo;
    std::function<void()> redo;
    std::function<juce::String()> undoName;
    std::function<juce::String()> redoName;
};

/** What copy and paste mean to the owner; any may be unset. */
struct CopyActions
{
    std::function<bool()> canCopy;
    std::function<bool()> canPaste;
    std::function<bool()> canPasteNow; // for a key, where canPaste tells what was so a while ago
    std::function<void()> copy;
    std::function<void()> paste;
    std::function<juce::String()> copyCaption;
    std::function<juce::String()> pasteCaption;
};

struct EditorActions : UndoActions, CopyActions
{
};

/** Whether a button for this action can be pressed: only when both are set and the predicate says so. */
inline bool isAvailable (const std::function<void()>& action, const std::function<bool()>& predicate)
{
    return action != nullptr && predicate != nullptr && predicate();
}

} // namespace quillon::ui_pro::controls
