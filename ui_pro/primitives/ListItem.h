#pragma once

#include <juce_graphics/juce_graphics.h>

#include <functional>

namespace quillon::ui_pro::primitives
{

/** One line of a drop-down list. */
struct ListItem
{
    enum class Kind
    {
        choice,
        heading,  // over what follows
        separator // a line
    };

    static ListItem headed (const juce::String& text)
    {
        ListItem item;
        item.text = text;
        item.kind = Kind::heading;
        return item;
    }

    static ListItem separating()
    {
        ListItem item;
        item.kind = Kind::separator;
        return item;
    }

    juce::String text;
    std::function<void()> choose; // runs when the list has closed; may delete it
    Kind kind = Kind::choice;
    bool isEnabled = true; // can be chosen
    bool isTicked = false; // in force
    bool isDim = false;    // can be chosen, but would change nothing
    juce::Path sign;       // what the choice leads to: a shape to fill, in any box; or empty
    juce::String help;
};

} // namespace quillon::ui_pro::primitives
