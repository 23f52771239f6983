#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::controls
{

/** A figure such as a time or a load: not finite or negative becomes 0, at most 999.9. */
float sanitisedFigure (float figure);

/** A caption with a short value text beneath it: what all the footer's controls look like. Message thread. */
class FooterReadout : public juce::Component, public juce::TooltipClient
{
public:
    const juce::String& getCaption() const { return caption; }

    const juce::String& getValueText() const { return valueText; }

    /** The caption and the value, on two lines. */
    juce::String getTooltip() override { return caption + "\n" + valueText; }

    /** The size of its slot in the theme's footer, at (0, 0). */
    juce::Rectangle<int> getPreferredSize() const { return preferredSize; }

    void paint (juce::Graphics& g) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

protected:
    FooterReadout (const juce::String& captionText, const juce::String& initialText, juce::Rectangle<int> slot);

    /** Repaints the value's row when the text is a new one. */
    void showText (const juce::String& text);

    /** The part of the component that the two rows take. */
    virtual juce::Rectangle<int> getTextArea() const { return getLocalBounds(); }

private:
    juce::Rectangle<int> getCaptionRow() const;
    juce::Rectangle<int> getValueRow() const;

    juce::String caption;
    juce::String valueText;
    juce::Rectangle<int> preferredSize;
};

} // namespace quillon::ui_pro::controls
