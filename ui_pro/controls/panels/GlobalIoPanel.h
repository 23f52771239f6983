#pragma once

#include "ui_pro/controls/panels/GainSection.h"
#include "ui_pro/primitives/RoleComponent.h"
#include "ui_pro/primitives/SidePanel.h"

namespace quillon::ui_pro::controls
{

/** The switches that hold for the whole effect, a place for one component of the editor's own, and either the trim knob
    or, for an editor without an InputOutputPanel, the input and output gains. */
class GlobalIoPanel final : public primitives::GroupComponent
{
public:
    explicit GlobalIoPanel (juce::Colour primary);

    OnOffButton& getBypass() { return bypass; }

    OnOffButton& getLink() { return link; }

    OnOffButton& getMsMode() { return msMode; }

    /** Connected by the owner; shown while the panel has no gains of its own. */
    KnobControl& getTrimKnob() { return trim; }

    GainSection& getInput() { return input; }

    GainSection& getOutput() { return output; }

    /** Off until asked for. */
    void setShowsInputOutput (bool shouldShow);

    /** A component below the switches, as wide as they are; not owned. Null takes it out. */
    void setExtraContent (juce::Component* content);

    void resized() override;

private:
    void layOutSwitches (juce::Rectangle<int>& area);

    primitives::SidePanel surface;
    primitives::SectionTitle heading { "GLOBAL" };
    OnOffButton bypass;
    OnOffButton link;
    OnOffButton msMode;
    KnobControl trim;
    GainSection input;
    GainSection output;
    juce::Component::SafePointer<juce::Component> extraContent;
    bool showsInputOutput = false;
};

} // namespace quillon::ui_pro::controls
