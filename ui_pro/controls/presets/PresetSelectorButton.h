#pragma once

#include "ui_pro/controls/presets/PresetDrawing.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace quillon::ui_pro::controls
{

/** One of the four parts of the preset selector's strip. */
class PresetSelectorButton final : public juce::Button
{
public:
    enum class Kind
    {
        initialise,
        previous,
        display, // shows the current preset and opens the browser
        next
    };

    PresetSelectorButton (Kind kindOfButton, const juce::String& title);

    /** Marks the display while the browser is open. */
    void setOpen (bool shouldBeOpen);

    /** Takes the keys of the display, the only part that takes the keyboard focus. */
    std::function<bool (const juce::KeyPress&)> onKey;

    bool keyPressed (const juce::KeyPress& key) override;
    void focusGained (FocusChangeType cause) override;
    void focusLost (FocusChangeType cause) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void paintButton (juce::Graphics& g, bool isHovered, bool isPressed) override;
    void paintDisplay (juce::Graphics& g, const presets::PartState& state) const;
    juce::Path shape() const;

    Kind kind;
    bool isOpen = false;
};

} // namespace quillon::ui_pro::controls
