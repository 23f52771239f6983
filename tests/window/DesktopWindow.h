#pragma once

#include "tests/support/MessagePump.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <stdexcept>

namespace kestreleq::test
{

/** A real window around an editor, on the display that DISPLAY names, and that display's real mouse and keyboard. */
class DesktopWindow final : public juce::DocumentWindow
{
public:
    explicit DesktopWindow (juce::AudioProcessorEditor& editor, juce::Point<int> at = { 40, 60 })
        : DocumentWindow (editor.processor.getName(), juce::Colours::black, allButtons)
    {
        setUsingNativeTitleBar (true);
        setResizable (editor.isResizable(), false);
        setContentNonOwned (&editor, true);
        setTopLeftPosition (at);
        setVisible (true);
    }

    ~DesktopWindow() override { clearContentComponent(); }

    /** What the editor does not take is the host's; the Tab key goes through the editor. */
    bool keyPressed (const juce::KeyPress& key) override
    {
        if (key.isKeyCode (juce::KeyPress::tabKey))
            return false;

        keys.add (key.getTextDescription());
        return true;
    }

    /** Has the window manager give it the keyboard, which a new window need not have. */
    void activate() { input ({ "windowactivate", "--sync", handle() }); }

    void moveMouse (juce::Component& over, juce::Point<int> at) { input (moveTo (getLocalPoint (&over, at))); }

    void click (juce::Component& over, juce::Point<int> at)
    {
        auto way = moveTo (getLocalPoint (&over, at));
        way.addArray ({ "sleep", "0.02", "click", "1" });
        input (way);
    }

    void click (juce::Component& over) { click (over, over.getLocalBounds().getCentre()); }

    void drag (juce::Component& over, juce::Point<int> from, juce::Point<int> to)
    {
        constexpr int steps = 5;
        const auto start = getLocalPoint (&over, from); // of a component that may move along
        const auto distance = getLocalPoint (&over, to) - start;
        auto way = moveTo (start);
        way.addArray ({ "mousedown", "1" });

        for (int i = 1; i <= steps; ++i)
        {
            way.addArray ({ "sleep", "0.03" });
            way.addArray (moveTo (start + distance * i / steps));
        }

        way.addArray ({ "sleep", "0.03", "mouseup", "1" });
        input (way);
    }

    /** Long enough for the key to be repeated. */
    void hold (const juce::String& key) { input ({ "keydown", key, "sleep", "1", "keyup", key }); }

    void press (const juce::String& key) { input ({ "key", key }); }

    void type (const juce::String& text) { input ({ "type", text }); }

    juce::StringArray keys; // those that came up to this window

private:
    juce::StringArray moveTo (juce::Point<int> at) const
    {
        return { "mousemove", "--window", handle(), juce::String (at.x), juce::String (at.y) };
    }

    juce::String handle() const { return juce::String (reinterpret_cast<juce::pointer_sized_int> (getWindowHandle())); }

    /** Runs xdotool, and gives the window time to answer. */
    static void input (juce::StringArray arguments)
    {
        juce::ChildProcess xdotool;

        arguments.insert (0, "xdotool");

        if (! xdotool.start (arguments, 0))
            throw std::runtime_error ("xdotool cannot be run");

        pumpMessagesUntil ([&] { return ! xdotool.isRunning(); }, 5000);
        pumpMessages (60);
    }
};

} // namespace kestreleq::test
