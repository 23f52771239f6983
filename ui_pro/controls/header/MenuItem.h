#pragma once

#include <juce_core/juce_core.h>

#include <cstdint>
#include <vector>

namespace quillon::ui_pro::controls
{

/** One entry of a menu. */
struct MenuItem
{
    enum class Kind : std::int32_t
    {
        action = 0,
        link = 1,        // opens its target
        panel = 2,       // opens a panel of the editor
        separator = 3,   // a line
        heading = 4,     // a text over what follows
        information = 5, // only tells something
    };

    juce::String id; // for the owner
    Kind kind = Kind::action;
    juce::String text;
    juce::String tooltip;
    juce::String target;  // the address of a link
    juce::String section; // the heading under which the entry stands

    /** Whether the user can choose it: not a separator, a heading, or a link that leads nowhere. */
    bool isChoosable() const;
};

/** The items as they are shown: with trimmed texts, and none without a name that should have one. */
std::vector<MenuItem> cleanedMenuItems (std::vector<MenuItem> items);

} // namespace quillon::ui_pro::controls
