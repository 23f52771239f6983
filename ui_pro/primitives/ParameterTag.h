#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::primitives
{

inline const juce::Identifier parameterTag ("parameterIndex");

/** Marks what changes a parameter, for a host that asks what is under the mouse. The host's index; none below 0. */
inline void setParameterIndex (juce::Component& component, int index)
{
    component.getProperties().set (parameterTag, index);
}

/** The index that a component is marked with, or the nearest of those that it stands in; -1 without one. */
inline int parameterIndexAt (const juce::Component& component)
{
    for (const auto* each = &component; each != nullptr; each = each->getParentComponent())
        if (each->getProperties().contains (parameterTag))
            return each->getProperties()[parameterTag];

    return -1;
}

} // namespace quillon::ui_pro::primitives
