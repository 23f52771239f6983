#pragma once

#include "ui_pro/controls/presets/PresetSelector.h"
#include "ui_pro/primitives/RoleComponent.h"

namespace quillon::ui_pro::controls
{

/** The area of the preset browser where the owner draws what the selected preset does; without a painter it names the
    preset's mode. */
class PresetPreview final : public primitives::SilentComponent
{
public:
    PresetPreview();

    void setPainter (PresetSelector::PreviewPainter newPainter);
    void show (const PresetEntry* entry);

    void paint (juce::Graphics& g) override;

private:
    PresetSelector::PreviewPainter painter;
    int id = PresetLibrary::none;
    juce::String mode;
};

} // namespace quillon::ui_pro::controls
