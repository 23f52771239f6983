#pragma once

#include "ui_pro/controls/presets/PresetEntry.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace quillon::ui_pro::controls
{

/** One row of the preset browser's table. */
class PresetRow final : public juce::Component
{
public:
    struct Content
    {
        int id = -1;
        juce::String name;
        juce::String category;
        juce::String author;
        juce::String mode;
        bool isInForce = false;
        bool isSelected = false;
        bool isHovered = false;

        bool operator== (const Content&) const = default;
    };

    PresetRow();

    /** Repaints when what is shown has changed. */
    void show (const Content& newContent);

    const Content& getContent() const { return content; }

    /** Called when a screen reader picks the row. */
    std::function<void (int presetId)> onPick;

    void paint (juce::Graphics& g) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    Content content;
};

} // namespace quillon::ui_pro::controls
