#pragma once

#include "ui_pro/primitives/FaceButton.h"
#include "ui_pro/primitives/RoleComponent.h"
#include "ui_pro/style/HeaderToolTokens.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>
#include <memory>

namespace quillon::ui_pro::controls
{

/** Two buttons side by side on one surface, with a gap that belongs to neither: what the header's undo/redo, copy/paste
    and A/B controls share. Message thread. */
class ToolPair : public primitives::GroupComponent
{
public:
    enum class Part
    {
        first,
        second
    };

    ~ToolPair() override;

    primitives::FaceButton& getButton (Part part) const;

protected:
    ToolPair (const juce::String& name, const style::HeaderToolTokens::Pair& metrics, const juce::String& first,
        const juce::String& second);

    /** Makes the parts two choices, of which the one with its toggle state on is in force: read as radio buttons. A
        choice is made by the press, a part that is none acts at a left click. */
    void makeChoices();

    /** Paints what stands on a part's plate, within `area`, in the current colour. */
    virtual void paintPart (
        juce::Graphics& g, juce::Rectangle<int> area, Part part, const primitives::ButtonLook& look) const = 0;

    virtual void act (Part part) = 0;
    virtual juce::String tooltipOf (Part part) const = 0;

private:
    class PartButton;

    std::array<std::unique_ptr<PartButton>, 2> parts;
};

} // namespace quillon::ui_pro::controls
