#include "ui_pro/primitives/TextValueHandler.h"

#include <utility>

namespace quillon::ui_pro::primitives
{
namespace
{

class ShownText final : public juce::AccessibilityTextValueInterface
{
public:
    explicit ShownText (std::function<juce::String()> makeText)
        : text (std::move (makeText))
    {
    }

    bool isReadOnly() const override { return true; }

    juce::String getCurrentValueAsString() const override { return text(); }

    void setValueAsString (const juce::String&) override {}

private:
    std::function<juce::String()> text;
};

} // namespace

std::unique_ptr<juce::AccessibilityTextValueInterface> makeShownText (std::function<juce::String()> text)
{
    return std::make_unique<ShownText> (std::move (text));
}

std::unique_ptr<juce::AccessibilityHandler> makeTextValueHandler (juce::Component& component,
    juce::AccessibilityRole role, std::function<juce::String()> text, juce::AccessibilityActions actions)
{
    return std::make_unique<juce::AccessibilityHandler> (component, role, std::move (actions),
        juce::AccessibilityHandler::Interfaces { makeShownText (std::move (text)) });
}

} // namespace quillon::ui_pro::primitives
