#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::primitives
{

/** A component that only holds or only decorates: screen readers see its children, and not it. */
class SilentComponent : public juce::Component
{
public:
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override
    {
        return createIgnoredAccessibilityHandler (*this);
    }
};

} // namespace quillon::ui_pro::primitives
