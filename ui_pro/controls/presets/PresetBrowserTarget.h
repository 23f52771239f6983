#pragma once

#include "ui_pro/controls/presets/PresetDrawing.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace quillon::ui_pro::controls
{

/** A button of the preset browser. It draws itself, takes the keyboard focus and speaks to screen readers, but leaves
    the mouse to the component that holds it, which alone decides what a click means. */
class PresetBrowserTarget final : public juce::Component
{
public:
    enum class Look
    {
        button,
        primary, // the one that the browser is opened for
        chooser, // opens a list
        tab,     // one of several, of which one is active
        menuItem,
        heading // of a group of menu items
    };

    PresetBrowserTarget (Look lookToUse, const juce::String& textToShow, const juce::String& title);

    void setText (const juce::String& newText);
    void setActive (bool shouldBeActive);
    void setHovered (bool shouldBeHovered);
    void setPressed (bool shouldBePressed);

    const juce::String& getText() const { return text; }

    bool isActive() const { return state.isActive; }

    /** Called by `press`, which the return and space keys and screen readers use. */
    std::function<void()> onPress;
    void press();

    void paint (juce::Graphics& g) override;
    bool keyPressed (const juce::KeyPress& key) override;
    void focusGained (FocusChangeType cause) override;
    void focusLost (FocusChangeType cause) override;
    void enablementChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void change (bool& flag, bool newValue);
    void paintPrimary (juce::Graphics& g) const;
    void paintLine (juce::Graphics& g) const;

    Look look;
    juce::String text;
    presets::PartState state;
};

} // namespace quillon::ui_pro::controls
