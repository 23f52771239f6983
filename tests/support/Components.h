#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::test
{

/** The first visible component within `root` of this kind and with this title, or null. */
template <typename Kind = juce::Component>
Kind* findTitled (juce::Component& root, const juce::String& title)
{
    for (auto* child : root.getChildren())
    {
        if (! child->isVisible())
            continue;

        if (auto* kind = dynamic_cast<Kind*> (child); kind != nullptr && child->getTitle() == title)
            return kind;

        if (auto* found = findTitled<Kind> (*child, title))
            return found;
    }

    return nullptr;
}

/** The middle of the component with this title, in the coordinates of `root`; far outside if there is none. */
inline juce::Point<int> middleOf (juce::Component& root, const juce::String& title)
{
    auto* const found = findTitled (root, title);
    return found != nullptr ? root.getLocalPoint (found, found->getLocalBounds().getCentre())
                            : juce::Point<int> (-10000, -10000);
}

} // namespace kestreleq::test
