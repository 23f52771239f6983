#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::test
{

/** One mouse on one component, in its coordinates: sends the events that the framework would, for as long as the
    component lives: an event may delete it. */
class Mouse
{
public:
    explicit Mouse (juce::Component& target)
        : component (&target)
    {
    }

    void enter (juce::Point<float> at) { send (&juce::Component::mouseEnter, at, {}); }

    void exit (juce::Point<float> at) { send (&juce::Component::mouseExit, at, {}); }

    void move (juce::Point<float> at) { send (&juce::Component::mouseMove, at, {}); }

    void down (juce::Point<float> at, juce::ModifierKeys held = juce::ModifierKeys::leftButtonModifier)
    {
        pressedAt = at;
        buttons = held;
        send (&juce::Component::mouseDown, at, buttons);
    }

    void drag (juce::Point<float> to, int heldKeys = 0)
    {
        send (&juce::Component::mouseDrag, to, buttons.withFlags (heldKeys));
    }

    void up (juce::Point<float> at) { send (&juce::Component::mouseUp, at, buttons); }

    void click (juce::Point<float> at)
    {
        down (at);
        up (at);
    }

    /** The framework's order: the second press first, then the double click, then the release. */
    void doubleClick (juce::Point<float> at)
    {
        click (at);
        down (at);
        send (&juce::Component::mouseDoubleClick, at, buttons, 2);
        up (at);
    }

    void wheel (juce::Point<float> at, float deltaY, bool isSmooth = false)
    {
        juce::MouseWheelDetails details {};
        details.deltaY = deltaY;
        details.isSmooth = isSmooth;

        if (component != nullptr)
            component->mouseWheelMove (event (at, {}, 1), details);
    }

private:
    void send (void (juce::Component::*handler) (const juce::MouseEvent&), juce::Point<float> at,
        juce::ModifierKeys modifiers, int clicks = 1)
    {
        if (component != nullptr)
            (component->*handler) (event (at, modifiers, clicks));
    }

    juce::MouseEvent event (juce::Point<float> at, juce::ModifierKeys modifiers, int clicks) const
    {
        const auto now = juce::Time::getCurrentTime();
        return { juce::Desktop::getInstance().getMainMouseSource(), at, modifiers, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f,
            component, component, now, pressedAt, now, clicks, at != pressedAt };
    }

    juce::Component::SafePointer<juce::Component> component;
    juce::Point<float> pressedAt;
    juce::ModifierKeys buttons;
};

} // namespace kestreleq::test
