#pragma once

#include "ui_pro/controls/header/EditorActions.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::controls
{

class CopyPasteControl;
class UndoRedoControl;

/** Holds the editor's undo, redo, copy and paste, gives them to the header's buttons, and turns the usual shortcuts
    into the same actions. Every other key is left to the host. Message thread. */
class EditorCommandController
{
public:
    /** The editor adds this to its window as a key listener. */
    class KeyForwarder final : public juce::KeyListener
    {
    public:
        explicit KeyForwarder (EditorCommandController& controller)
            : owner (controller)
        {
        }

        bool keyPressed (const juce::KeyPress& key, juce::Component*) override { return owner.handleKey (key); }

        bool keyStateChanged (bool, juce::Component*) override { return false; }

    private:
        EditorCommandController& owner;
    };

    /** The controls must outlive the controller. */
    EditorCommandController (UndoRedoControl& undoRedo, CopyPasteControl& copyPaste);

    /** Replaces all actions, here and in both controls. */
    void setActions (EditorActions newActions);

    /** Refreshes both controls. */
    void refresh();

    /** Whether the key was one of the shortcuts; it then goes no further, even if there was nothing to do. */
    bool handleKey (const juce::KeyPress& key);

    KeyForwarder& getKeyForwarder() { return forwarder; }

private:
    EditorActions actions;
    UndoRedoControl& undoRedoControl;
    CopyPasteControl& copyPasteControl;
    KeyForwarder forwarder { *this };

    JUCE_DECLARE_NON_COPYABLE (EditorCommandController)
};

} // namespace quillon::ui_pro::controls
