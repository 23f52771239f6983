#include "ui_pro/controls/knob/KnobAccessibility.h"

#include "ui_pro/controls/knob/KnobControl.h"

namespace quillon::ui_pro::controls
{
namespace
{

class KnobValue final : public juce::AccessibilityValueInterface
{
public:
    explicit KnobValue (KnobControl& control)
        : knob (control)
    {
    }

    bool isReadOnly() const override { return ! knob.isEnabled(); }

    double getCurrentValue() const override { return static_cast<double> (knob.getValue()); }

    juce::String getCurrentValueAsString() const override { return knob.getValueText(); }

    void setValue (double newValue) override
    {
        if (isReadOnly() || knob.isDragging())
            return;

        juce::NullCheckedInvocation::invoke (knob.onDragStart);
        knob.setValueFromUser (static_cast<float> (newValue));
        juce::NullCheckedInvocation::invoke (knob.onDragEnd);
    }

    /** What is no number changes nothing. */
    void setValueAsString (const juce::String& newValue) override
    {
        if (newValue.containsAnyOf ("0123456789"))
            setValue (knob.positionOf != nullptr ? static_cast<double> (knob.positionOf (newValue))
                                                 : newValue.getDoubleValue() / 100.0);
    }

    AccessibleValueRange getRange() const override
    {
        const auto steps = knob.getSteps();
        return { { 0.0, 1.0 }, steps < 2 ? 0.01 : 1.0 / (steps - 1) };
    }

private:
    KnobControl& knob;
};

class KnobAccessibilityHandler final : public juce::AccessibilityHandler
{
public:
    explicit KnobAccessibilityHandler (KnobControl& control)
        : AccessibilityHandler (
              control, juce::AccessibilityRole::slider, {}, Interfaces { std::make_unique<KnobValue> (control) }),
          knob (control)
    {
    }

    juce::String getHelp() const override { return knob.getTooltip(); }

private:
    KnobControl& knob;
};

} // namespace

std::unique_ptr<juce::AccessibilityHandler> makeKnobAccessibility (KnobControl& knob)
{
    return std::make_unique<KnobAccessibilityHandler> (knob);
}

} // namespace quillon::ui_pro::controls
