#pragma once

#include "ui_pro/controls/buttons/ButtonLook.h"
#include "ui_pro/style/HeaderToolTokens.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::controls
{

/** Two buttons side by side on one surface, with a gap that belongs to neither: what the header's undo/redo, copy/paste
    and A/B controls share. Never takes the keyboard focus. Message thread. */
class ToolPair : public juce::Component, public juce::TooltipClient
{
public:
    enum class Part
    {
        none = 0,
        first = 1,
        second = 2
    };

    ~ToolPair() override;

    /** The part at a point in the control's coordinates; right and bottom edges are outside. */
    Part partAt (juce::Point<int> position) const;

    juce::Rectangle<int> boundsOf (Part part) const;

    Part getHoveredPart() const { return hovered; }

    bool isPartEnabled (Part part) const;

    /** The help for the part under the mouse. */
    juce::String getTooltip() override;

    void mouseMove (const juce::MouseEvent& event) override;
    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;

protected:
    /** When a part acts: at the press, or at a left click's release over the part that was pressed. */
    enum class ActsOn
    {
        press,
        click
    };

    ToolPair (const juce::String& name, const style::HeaderToolTokens::Pair& metrics, ActsOn trigger);

    /** Paints what stands on a part's plate, within `area`, in the current colour. */
    virtual void paintPart (juce::Graphics& g, juce::Rectangle<int> area, Part part, const ButtonLook& look) const = 0;

    virtual void act (Part part) = 0;
    virtual juce::String tooltipOf (Part part) const = 0;

    /** For a part that is one of two choices: whether it is the chosen one. */
    virtual bool isChosen (Part) const { return false; }

    /** The parts as a screen reader names them; choices are read as radio buttons. */
    void describeParts (const juce::String& first, const juce::String& second, bool areChoices);

    void setPartEnabled (Part part, bool shouldBeEnabled);
    void repaintPart (Part part);

private:
    class PartComponent;

    void setHovered (Part part);
    void setPressed (Part part);

    PartComponent& componentOf (Part part) const { return part == Part::second ? *second : *first; }

    const style::HeaderToolTokens::Pair& metrics;
    const ActsOn trigger;
    Part hovered = Part::none;
    Part pressed = Part::none; // the part that holds the mouse button, while the mouse is over it
    Part armed = Part::none;   // the part on which the button went down
    std::unique_ptr<PartComponent> first;
    std::unique_ptr<PartComponent> second;
};

} // namespace quillon::ui_pro::controls
