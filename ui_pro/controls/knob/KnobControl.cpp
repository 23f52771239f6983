#include "ui_pro/controls/knob/KnobControl.h"

#include "ui_pro/controls/knob/KnobAccessibility.h"
#include "ui_pro/controls/knob/KnobFace.h"
#include "ui_pro/style/Fonts.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

float sanitised (float position)
{
    return std::isfinite (position) ? std::clamp (position, 0.0f, 1.0f) : 0.0f;
}

bool isUsableSize (float size)
{
    return std::isfinite (size) && size > 0.0f;
}

} // namespace

KnobControl::KnobControl()
{
    setTitle (label);
    setMouseClickGrabsKeyboardFocus (false);
    setBounds (getPreferredSize());
}

juce::Rectangle<int> KnobControl::getPreferredSize()
{
    const auto& tokens = style::Theme::get().knob;
    return { tokens.preferredWidth, tokens.preferredHeight };
}

void KnobControl::setValue (float newValue)
{
    changeValue (sanitised (newValue));
}

bool KnobControl::setValueFromUser (float newValue)
{
    const auto result = quantised (sanitised (newValue));

    if (juce::exactlyEqual (result, value))
        return false;

    changeValue (result);
    juce::NullCheckedInvocation::invoke (onValueChange, result);
    return true;
}

bool KnobControl::triggerReset()
{
    if (onDoubleClick == nullptr)
        return false;

    endDrag();
    onDoubleClick();
    return true;
}

void KnobControl::endDrag()
{
    if (! dragging)
        return;

    dragging = false;
    repaint (getKnobBounds());
    juce::NullCheckedInvocation::invoke (onDragEnd);
}

void KnobControl::setSteps (int newSteps)
{
    if (steps == newSteps)
        return;

    steps = newSteps;
    changeValue (quantised (value));
}

void KnobControl::setMaxDiameter (int newDiameter)
{
    change (maxDiameterOverride, newDiameter);
}

void KnobControl::setLabel (const juce::String& newLabel)
{
    if (label == newLabel)
        return;

    setTitle (newLabel);
    change (label, newLabel);
}

void KnobControl::setShowLabel (bool shouldShow)
{
    change (showLabel, shouldShow);
}

void KnobControl::setShowValue (bool shouldShow)
{
    change (showValue, shouldShow);
}

void KnobControl::setLayoutStyle (int newStyle)
{
    change (layoutStyle, newStyle);
}

void KnobControl::setColourId (int newColourId)
{
    setAccent (style::Theme::accent (newColourId));
}

void KnobControl::setAccent (juce::Colour newAccent)
{
    change (accent, newAccent);
}

void KnobControl::setLabelFont (float size, juce::Colour colour)
{
    if (! isUsableSize (size))
        return;

    change (labelFontSize, size);
    change (labelColour, colour);
}

void KnobControl::setValueFont (float size, juce::Colour colour)
{
    if (! isUsableSize (size))
        return;

    change (valueFontSize, size);
    change (valueColour, colour);
}

void KnobControl::setLabelHeight (int height)
{
    if (height >= 0)
        change (labelHeightOverride, std::optional (height));
}

void KnobControl::setLabelGap (int gap)
{
    if (gap >= 0)
        change (labelGapOverride, std::optional (gap));
}

void KnobControl::setValueGap (int gap)
{
    if (gap >= 0)
        change (valueGapOverride, std::optional (gap));
}

void KnobControl::setValueText (const juce::String& text)
{
    if (valueTextOverride == text)
        return;

    valueTextOverride = text;
    repaint (getValueBounds());
}

void KnobControl::clearValueText()
{
    if (! valueTextOverride.has_value())
        return;

    valueTextOverride.reset();
    repaint (getValueBounds());
}

juce::String KnobControl::getValueText() const
{
    if (valueTextOverride.has_value())
        return *valueTextOverride;

    return juce::String (static_cast<int> (std::nearbyint (sanitised (value) * 100.0f))) + "%";
}

void KnobControl::paint (juce::Graphics& g)
{
    const auto layout = layOut();
    const auto knob = layout.knob.toFloat();
    const auto& disabledText = style::Theme::get().knob.disabledText;
    const auto drawText =
        [&] (juce::Graphics& target, const juce::String& text, juce::Rectangle<int> area, juce::Colour colour)
    {
        target.setColour (isEnabled() ? colour : disabledText);
        target.drawText (text, area, juce::Justification::centred);
    };

    staticPart.draw (g, *this,
        [&] (juce::Graphics& picture)
        {
            picture.setFont (style::boldFont (labelFontSize));
            drawText (picture, label, layout.label, labelColour);
            paintKnobBody (picture, knob, isEnabled());
        });

    if (g.clipRegionIntersects (layout.knob))
        paintKnobValue (g, knob, { value, accent, isEnabled(), dragging || isMouseOver() });

    if (g.clipRegionIntersects (layout.value))
    {
        g.setFont (style::regularFont (valueFontSize));
        drawText (g, getValueText(), layout.value, valueColour);
    }
}

void KnobControl::mouseEnter (const juce::MouseEvent&)
{
    repaint (getKnobBounds());
}

void KnobControl::mouseExit (const juce::MouseEvent&)
{
    repaint (getKnobBounds());
}

void KnobControl::mouseDown (const juce::MouseEvent& event)
{
    if (! isEnabled())
        return;

    endDrag(); // a second button or finger does not begin a gesture within a gesture
    dragging = true;
    dragStartY = event.position.getY();
    dragStartValue = value;
    event.source.enableUnboundedMouseMovement (true, true); // it goes on where the screen ends
    juce::NullCheckedInvocation::invoke (onDragStart);
}

void KnobControl::mouseDrag (const juce::MouseEvent& event)
{
    if (dragging)
        setValueFromUser (
            dragStartValue + (dragStartY - event.position.getY()) / style::Theme::get().knob.dragDistance);
}

void KnobControl::mouseUp (const juce::MouseEvent&)
{
    endDrag();
}

void KnobControl::mouseDoubleClick (const juce::MouseEvent&)
{
    if (isEnabled())
        triggerReset();
}

void KnobControl::enablementChanged()
{
    if (! isEnabled())
        endDrag();

    repaintStaticPart();
}

void KnobControl::visibilityChanged()
{
    if (! isVisible())
        endDrag();
}

std::unique_ptr<juce::AccessibilityHandler> KnobControl::createAccessibilityHandler()
{
    return makeKnobAccessibility (*this);
}

float KnobControl::quantised (float position) const
{
    if (steps < 2)
        return position;

    const auto last = static_cast<float> (steps - 1);
    return std::clamp (std::round (position * last), 0.0f, last) / last;
}

KnobLayout KnobControl::layOut() const
{
    const auto& tokens = style::Theme::get().knob;
    KnobLayoutOptions options;
    options.stacked = layoutStyle == 1;
    options.showLabel = showLabel;
    options.showValue = showValue;
    options.labelHeight = labelHeightOverride.value_or (tokens.labelHeight);
    options.labelGap = labelGapOverride.value_or (tokens.labelGap);
    options.valueGap = valueGapOverride.value_or (tokens.valueGap);
    options.maxDiameter = maxDiameterOverride >= 1 ? maxDiameterOverride : tokens.maxDiameter;
    return layOutKnob (getLocalBounds(), options);
}

void KnobControl::changeValue (float newValue)
{
    if (juce::exactlyEqual (newValue, value))
        return;

    const auto oldText = getValueText();
    value = newValue;
    const auto layout = layOut();
    repaint (layout.knob);

    if (getValueText() != oldText)
        repaint (layout.value);

    if (auto* handler = getAccessibilityHandler())
        handler->notifyAccessibilityEvent (juce::AccessibilityEvent::valueChanged);
}

void KnobControl::repaintStaticPart()
{
    staticPart.invalidate();
    repaint();
}

} // namespace quillon::ui_pro::controls
