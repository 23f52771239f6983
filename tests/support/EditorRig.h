#pragma once

#include "editor/KestrelEditor.h"

#include "tests/support/MessagePump.h"
#include "tests/support/Mouse.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/Window.h"

namespace kestreleq::test
{

/** A processor and its editor, in whatever window. */
struct EditedRig : ProcessorRig
{
    StateClipboard& clipboard() { return editor->getHeader().getClipboard(); }

    /** Opens an editor that touches nothing outside of the test. */
    void openEditor()
    {
        editor = std::make_unique<KestrelEditor> (processor);
        editor->getHeader().openAddress = [] (const juce::String&) {};
        clipboard().hasText = [this] { return clipboardText.isNotEmpty(); };
        clipboard().read = [this] { return clipboardText; };
        clipboard().write = [this] (const juce::String& text) { clipboardText = text; };
    }

    juce::String clipboardText;
    std::unique_ptr<KestrelEditor> editor;
};

/** With the editor open in a window that is on no screen. */
struct EditorRig : EditedRig
{
    EditorRig() { open(); }

    ~EditorRig() { editor.reset(); }

    /** As the constructor has done; also after 'editor.reset()'. */
    void open()
    {
        openEditor();
        editor->setClock ([this] { return now; });

        for (std::size_t lane = 0; lane < numLanes; ++lane)
            editor->getLane (lane).getChart().isKeyDown = [this] (int) { return keysAreHeld; };

        window.setSize (editor->getWidth(), editor->getHeight());
        window.addAndMakeVisible (*editor);
        editor->grabKeyboardFocus();
    }

    void tick()
    {
        now += 50.0;
        pumpMessages (1); // what attachments have to tell
        editor->tick();
    }

    /** Drags a control's face upwards by so many design pixels. */
    void drag (juce::Component& control, float distance)
    {
        Mouse mouse (control);
        mouse.down ({ 59.0f, 60.0f });
        mouse.drag ({ 59.0f, 60.0f - distance / 2.0f });
        mouse.drag ({ 59.0f, 60.0f - distance });
        mouse.up ({ 59.0f, 60.0f - distance });
    }

    /** Clicks a control at a point of its own. */
    void click (juce::Component& control, juce::Point<int> at) { window.click (window.getLocalPoint (&control, at)); }

    std::array<float, numParameters> values()
    {
        std::array<float, numParameters> result;
        for (std::size_t i = 0; i < numParameters; ++i)
            result[i] = get (parameterTable[i].id);
        return result;
    }

    juce::StringArray steps() { return processor.getCore().getUndoManager().getUndoDescriptions(); }

    bool press (int key, int modifiers)
    {
        return window.pressKey (juce::KeyPress (key, modifiers, static_cast<juce::juce_wchar> (0)));
    }

    double now = 1000.0;
    bool keysAreHeld = false;
    Window window { 1, 1 };
};

} // namespace kestreleq::test
