#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::test
{

/** A window that is on no screen: what it holds counts as showing, can have the keyboard focus, and gets mouse and keys
    by the framework's own way from the window down, through hit tests, transforms and key listeners. */
class Window final : public juce::Component
{
public:
    Window (int width, int height)
    {
        setSize (width, height);
        setVisible (true);
        addToDesktop (0);
    }

    ~Window() override { removeFromDesktop(); }

    /** Whether something in the window took the key; what nothing takes is the host's. */
    bool pressKey (const juce::KeyPress& key) { return getPeer()->handleKeyPress (key); }

    /** The mouse at a place, with the buttons and keys that are held there, at a time in milliseconds. */
    void sendMouse (juce::Point<int> at, juce::ModifierKeys held, juce::int64 time = juce::Time::currentTimeMillis())
    {
        getPeer()->handleMouseEvent (
            juce::MouseInputSource::InputSourceType::mouse, at.toFloat(), held, 0.0f, 0.0f, time);
    }

    void moveMouse (juce::Point<int> at) { sendMouse (at, {}); }

    void click (juce::Point<int> at)
    {
        sendMouse (at, {});
        sendMouse (at, juce::ModifierKeys::leftButtonModifier);
        sendMouse (at, {});
    }

private:
    class Peer final : public juce::ComponentPeer
    {
    public:
        Peer (juce::Component& shown, int styleFlagsOfShown)
            : ComponentPeer (shown, styleFlagsOfShown)
        {
        }

        // Not null: without a native window there are no accessibility handlers.
        void* getNativeHandle() const override { return const_cast<Peer*> (this); }

        void setVisible (bool) override {}

        void setTitle (const juce::String&) override {}

        void setBounds (const juce::Rectangle<int>&, bool) override { handleMovedOrResized(); }

        juce::Rectangle<int> getBounds() const override { return component.getBounds(); }

        juce::Point<float> localToGlobal (juce::Point<float> position) override { return position; }

        juce::Point<float> globalToLocal (juce::Point<float> position) override { return position; }

        using ComponentPeer::globalToLocal;
        using ComponentPeer::localToGlobal;

        void setMinimised (bool) override {}

        bool isMinimised() const override { return false; }

        bool isShowing() const override { return true; }

        void setFullScreen (bool) override {}

        bool isFullScreen() const override { return false; }

        void setIcon (const juce::Image&) override {}

        bool contains (juce::Point<int> at, bool) const override { return component.getLocalBounds().contains (at); }

        OptionalBorderSize getFrameSizeIfPresent() const override { return {}; }

        juce::BorderSize<int> getFrameSize() const override { return {}; }

        bool setAlwaysOnTop (bool) override { return true; }

        void toFront (bool) override {}

        void toBehind (ComponentPeer*) override {}

        bool isFocused() const override { return true; }

        void grabFocus() override {}

        void repaint (const juce::Rectangle<int>&) override {}

        void performAnyPendingRepaintsNow() override {}

        void setAlpha (float) override {}

        juce::StringArray getAvailableRenderingEngines() override { return { "None" }; }

        void textInputRequired (juce::Point<int>, juce::TextInputTarget&) override {}
    };

    juce::ComponentPeer* createNewPeer (int style, void*) override { return new Peer (*this, style); }
};

} // namespace kestreleq::test
