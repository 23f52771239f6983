#pragma once

#include "editor/KestrelEditor.h"
#include "tests/support/MessagePump.h"
#include "tests/support/Window.h"

#include <memory>

namespace kestreleq::test
{

/** A processor's editor, open in a window that is on no screen. Message thread. */
class OpenEditor
{
public:
    explicit OpenEditor (KestrelProcessor& processor)
        : editor (std::make_unique<KestrelEditor> (processor)),
          window (editor->getWidth(), editor->getHeight())
    {
        window.addAndMakeVisible (*editor);
    }

    ~OpenEditor() { editor.reset(); }

    /** What the message thread does: timers and messages for so long, then the window is painted. */
    void work (int milliseconds)
    {
        pumpMessages (milliseconds);
        window.createComponentSnapshot (window.getLocalBounds(), true, 0.5f);
    }

private:
    std::unique_ptr<KestrelEditor> editor;
    Window window;
};

} // namespace kestreleq::test
