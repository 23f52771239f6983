#pragma once

#include "ui_pro/controls/knob/KnobLayout.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/style/Theme.h"

#include <functional>
#include <optional>

namespace quillon::ui_pro::controls
{

/** A rotary control for a normalised value: an arc, a label and a value text. Vertical dragging changes it, a double
    click asks the owner to reset it. It holds no parameter; the owner connects the callbacks. Message thread. */
class KnobControl : public juce::Component, public juce::SettableTooltipClient
{
public:
    KnobControl();

    std::function<void()> onDragStart;
    std::function<void (float)> onValueChange; // after every change by the user, with the new value
    std::function<void()> onDragEnd;
    std::function<void()> onDoubleClick; // the reset action; the knob does not know its default

    /** The position that a text such as the shown one stands for; without it a text is a percentage. */
    std::function<float (const juce::String&)> positionOf;

    /** Moves the knob without a callback and without quantising. Not finite counts as 0; clamped to 0 to 1. */
    void setValue (float newValue);

    /** Moves the knob as the user does: quantised, and reported through onValueChange. Returns whether it moved. */
    bool setValueFromUser (float newValue);

    /** Ends a drag in progress and runs the reset action. False, and nothing done, when there is none. */
    bool triggerReset();

    /** Ends a drag in progress, with onDragEnd. For an owner that goes away under the mouse. */
    void endDrag();

    /** The number of detents; fewer than 2 means continuous. */
    void setSteps (int newSteps);

    /** The knob's largest diameter in the stacked style; a value below 1 means the theme's. */
    void setMaxDiameter (int newDiameter);

    void setLabel (const juce::String& newLabel);
    void setShowLabel (bool shouldShow);
    void setShowValue (bool shouldShow);

    /** 1: label, knob and value from top to bottom, centred as a group. Any other: compact, the value text to the right
        of the knob. */
    void setLayoutStyle (int newStyle);

    /** An accent role of the theme. */
    void setColourId (int newColourId);

    /** The colour itself. */
    void setAccent (juce::Colour newAccent);

    /** Ignored unless the size is finite and positive. */
    void setLabelFont (float size, juce::Colour colour);
    void setValueFont (float size, juce::Colour colour);

    /** Lengths in design pixels; a negative one is ignored. */
    void setLabelHeight (int height);
    void setLabelGap (int gap);
    void setValueGap (int gap);

    /** A text to show instead of the percentage. */
    void setValueText (const juce::String& text);
    void clearValueText();

    juce::String getValueText() const;

    float getValue() const { return value; }

    const juce::String& getLabel() const { return label; }

    int getSteps() const { return steps; }

    bool isDragging() const { return dragging; }

    static juce::Rectangle<int> getPreferredSize();

    juce::Rectangle<int> getLabelBounds() const { return layOut().label; }

    juce::Rectangle<int> getKnobBounds() const { return layOut().knob; }

    juce::Rectangle<int> getValueBounds() const { return layOut().value; }

    void paint (juce::Graphics& g) override;
    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void mouseDoubleClick (const juce::MouseEvent& event) override;
    void enablementChanged() override;
    void visibilityChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    float quantised (float position) const;
    KnobLayout layOut() const;
    void changeValue (float newValue);
    void repaintStaticPart();

    /** Stores a new value and repaints everything, or does nothing when it is the old one. */
    template <typename Type>
    void change (Type& field, const Type& newValue)
    {
        if (field == newValue)
            return;

        field = newValue;
        repaintStaticPart();
    }

    float value = 0.5f;
    juce::String label { "KNOB" };
    bool showLabel = true;
    bool showValue = true;
    int layoutStyle = 1;
    std::optional<juce::String> valueTextOverride;
    juce::Colour accent = style::Theme::accent (16);
    float labelFontSize = style::Theme::get().knob.labelFontSize;
    juce::Colour labelColour = style::Theme::palette().textPrimary;
    float valueFontSize = style::Theme::get().knob.valueFontSize;
    juce::Colour valueColour = style::Theme::palette().textPrimary;
    std::optional<int> labelHeightOverride;
    std::optional<int> labelGapOverride;
    std::optional<int> valueGapOverride;
    bool dragging = false;
    float dragStartY = 0.0f;
    float dragStartValue = 0.5f;
    int steps = 0;
    int maxDiameterOverride = 0;

    primitives::CachedLayer staticPart; // the label, the body and the track
};

} // namespace quillon::ui_pro::controls
