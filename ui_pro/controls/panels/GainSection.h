#pragma once

#include "ui_pro/controls/buttons/LinkIconButton.h"
#include "ui_pro/controls/buttons/OnOffButton.h"
#include "ui_pro/controls/knob/KnobControl.h"
#include "ui_pro/primitives/RoleComponent.h"
#include "ui_pro/primitives/SectionTitle.h"

namespace quillon::ui_pro::controls
{

/** The gains of one side of an effect: a titled pair of knobs with their link between them, and the automatic gain. */
class GainSection final : public primitives::GroupComponent
{
public:
    GainSection (const juce::String& title, juce::Colour accent);

    KnobControl& getGain1() { return gain1; }

    KnobControl& getGain2() { return gain2; }

    LinkIconButton& getLink() { return link; }

    OnOffButton& getAutoGain() { return autoGain; }

    void resized() override;

private:
    primitives::SectionTitle heading;
    KnobControl gain1;
    LinkIconButton link;
    KnobControl gain2;
    OnOffButton autoGain;
};

} // namespace quillon::ui_pro::controls
