#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::test
{

/** One mouse on one component, in its coordinates: sends the events that the framework would. */
class Mouse
{
public:
    explicit Mouse (juce::Component& target)
        : component (target)
    {
    }

    void enter (juce::Point<float> at) { component.mouseEnter (event (at, {})); }

    void exit (juce::Point<float> at) { component.mouseExit (event (at, {})); }

    void move (juce::Point<float> at) { component.mouseMove (event (at, {})); }

    void down (juce::Point<float> at, juce::ModifierKeys held = juce::ModifierKeys::leftButtonModifier)
    {
        pressedAt = at;
        buttons = held;
        component.mouseDown (event (at, buttons));
    }

    void drag (juce::Point<float> to) { component.mouseDrag (event (to, buttons)); }

    void up (juce::Point<float> at) { component.mouseUp (event (at, buttons)); }

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
        component.mouseDoubleClick (event (at, buttons, 2));
        up (at);
    }

    void wheel (juce::Point<float> at, float deltaY)
    {
        juce::MouseWheelDetails details {};
        details.deltaY = deltaY;
        component.mouseWheelMove (event (at, {}), details);
    }

private:
    juce::MouseEvent event (juce::Point<float> at, juce::ModifierKeys modifiers, int clicks = 1) const
    {
        const auto now = juce::Time::getCurrentTime();
        return { juce::Desktop::getInstance().getMainMouseSource(), at, modifiers, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f,
            &component, &component, now, pressedAt, now, clicks, at != pressedAt };
    }

    juce::Component& component;
    juce::Point<float> pressedAt;
    juce::ModifierKeys buttons;
};

} // namespace kestreleq::test
