#pragma once

#include "ui_pro/controls/presets/PresetLibrary.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::controls
{

/** The line under the preset table: how many presets are shown, and the selected one with "Loaded" beside it when it is
    the one in force. */
class PresetStatusLine final : public primitives::TextComponent
{
public:
    PresetStatusLine();

    void show (const PresetLibrary& library);

    /** Such as "6 presets". */
    const juce::String& getCountText() const { return countText; }

    /** "Loaded", or empty. */
    const juce::String& getMarkText() const { return markText; }

    void paint (juce::Graphics& g) override;

private:
    juce::String countText;
    juce::String nameText;
    juce::String markText;
};

} // namespace quillon::ui_pro::controls
