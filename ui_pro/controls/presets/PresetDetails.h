#pragma once

#include "ui_pro/controls/presets/PresetEntry.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

namespace quillon::ui_pro::controls
{

/** What the preset browser tells of the selected preset. */
class PresetDetails final : public primitives::TextComponent
{
public:
    PresetDetails();

    /** Null shows that none is selected. */
    void show (const PresetEntry* newEntry);

    void paint (juce::Graphics& g) override;

private:
    void paintTags (juce::Graphics& g, juce::Rectangle<int> area) const;

    std::optional<PresetEntry> entry;
};

} // namespace quillon::ui_pro::controls
