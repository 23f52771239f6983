#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::primitives
{

/** A component that a screen reader takes for this, under its title. */
template <juce::AccessibilityRole role>
class RoleComponent : public juce::Component
{
public:
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override
    {
        return std::make_unique<juce::AccessibilityHandler> (*this, role);
    }
};

/** Only holds or only decorates: a screen reader finds what is in it, and not it. */
using SilentComponent = RoleComponent<juce::AccessibilityRole::ignored>;

/** Only tells something. */
using TextComponent = RoleComponent<juce::AccessibilityRole::staticText>;

/** Holds what belongs together. */
class GroupComponent : public RoleComponent<juce::AccessibilityRole::group>
{
public:
    GroupComponent() { setFocusContainerType (FocusContainerType::focusContainer); }
};

} // namespace quillon::ui_pro::primitives
