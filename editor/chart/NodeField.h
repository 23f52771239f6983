#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace kestreleq
{

/** The small field at a chart node that takes a typed value. Return passes the text on and closes it, unless the text
    is refused: then the field turns red and stays. Escape and the loss of the keyboard close it. Message thread. */
class NodeField final : public juce::TextEditor
{
public:
    NodeField();

    /** Opens it with a text, which is selected. `accept` tells whether it takes what was typed. */
    void open (juce::Rectangle<int> bounds, float textSize, const juce::String& text,
        std::function<bool (const juce::String&)> accept);
    void close();

    bool isOpen() const { return isVisible(); }

    /** True since the text was refused, until it changes. */
    bool hasRefused() const { return refused; }

private:
    void take();
    void setRefused (bool shouldBeRefused);

    std::function<bool (const juce::String&)> acceptText;
    bool refused = false;
};

} // namespace kestreleq
