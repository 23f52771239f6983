#pragma once

#include "engine/KestrelProcessor.h"

#include <functional>

namespace kestreleq
{

/** The whole state as text on the system's clipboard. Message thread. */
class StateClipboard
{
public:
    explicit StateClipboard (KestrelProcessor& processorToCopy);

    void copy();

    /** Takes the state from the clipboard, as one undoable step. False, and nothing changed, when what is there is no
        state. */
    bool paste();

    /** Whether there is any text to paste, as of the last second. */
    bool canPaste();

    /** The same as of now: another instance may just have copied. */
    bool canPasteNow();

    // The system's own unless replaced.
    std::function<bool()> hasText;
    std::function<juce::String()> read; // may wait for another program
    std::function<void (const juce::String&)> write;

private:
    KestrelProcessor& processor;
    bool hadText = false;
    double lastLook = -1.0; // ms; never
};

} // namespace kestreleq
