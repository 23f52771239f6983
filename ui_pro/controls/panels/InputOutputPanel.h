#pragma once

#include "ui_pro/controls/panels/GainSection.h"
#include "ui_pro/primitives/RoleComponent.h"
#include "ui_pro/primitives/SidePanel.h"

namespace quillon::ui_pro::controls
{

/** The input gains above the output gains. */
class InputOutputPanel final : public primitives::SilentComponent
{
public:
    InputOutputPanel (juce::Colour primary, juce::Colour secondary);

    GainSection& getInput() { return input; }

    GainSection& getOutput() { return output; }

    void resized() override;

private:
    primitives::SidePanel surface;
    GainSection input;
    GainSection output;
};

} // namespace quillon::ui_pro::controls
