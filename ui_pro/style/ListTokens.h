#pragma once

#include <juce_graphics/juce_graphics.h>

namespace quillon::ui_pro::style
{

/** A drop-down list, in design pixels; as it stands, the list of a chooser. */
struct ListTokens
{
    /** The list of the header's menu button. */
    static ListTokens forMenu()
    {
        ListTokens menu;
        menu.minimumWidth = 196;
        menu.padding = 6;
        menu.rightInset = 38;
        menu.headingHeight = 26;
        menu.textSize = 15.0f;
        menu.headingSize = 11.0f;
        menu.cornerRadius = 8.0f;
        menu.signAt = 19.5f;
        menu.endsAtAnchor = true;
        menu.surface = juce::Colour (0xfa151b20);
        menu.edge = juce::Colour (0xff3a4650);
        menu.rowLit = juce::Colour (0xff2a343c);
        menu.rowPressed = juce::Colour (0xff1d252b);
        menu.shadow = juce::Colour (0x99000000);
        return menu;
    }

    /** The list of a footer's control: above it, with a dot in front of the mode in force. */
    static ListTokens forModes()
    {
        ListTokens modes;
        modes.minimumWidth = 140;
        modes.padding = 5;
        modes.leftInset = 24;
        modes.rightInset = 0;
        modes.rowHeight = 28;
        modes.gapToAnchor = 6;
        modes.textSize = 13.0f;
        modes.isDotted = true;
        modes.opensUpwards = true;
        modes.edge = juce::Colour (0xff3a4650);
        modes.rowLit = juce::Colour (0x12ffffff);
        modes.rowPressed = juce::Colour (0x1fffffff);
        return modes;
    }

    int minimumWidth = 180;
    int maximumWidth = 420;
    int padding = 4;    // around the rows
    int leftInset = 12; // of a row's text
    int rightInset = 28;
    int rowHeight = 30;
    int headingHeight = 30;
    int separatorHeight = 11;
    int gapToAnchor = 4;
    int windowMargin = 6;

    float textSize = 13.5f;
    float headingSize = 12.0f;
    float cornerRadius = 6.0f;
    float rowRadius = 4.0f;
    float signAt = 14.0f; // the centre of a tick or another sign, from the row's right edge

    bool isDotted = false;     // what is in force has a dot at its left instead of a tick
    bool opensUpwards = false; // where there is room
    bool endsAtAnchor = false; // with its right edge; otherwise it begins with its left one

    float minimumScale = 0.8f; // window pixels per design pixel, at least: readable in the smallest window

    juce::Colour surface { 0xff151b20 };
    juce::Colour edge { 0xff68727d };
    juce::Colour rowLit { 0x43f9a66d };
    juce::Colour rowPressed { 0x43f9a66d };
    juce::Colour shadow; // none
};

} // namespace quillon::ui_pro::style
