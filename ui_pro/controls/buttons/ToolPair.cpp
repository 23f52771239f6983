#include "ui_pro/controls/buttons/ToolPair.h"

#include "ui_pro/controls/buttons/ToolIcons.h"

#include <utility>

namespace quillon::ui_pro::controls
{

/** One part: a region of its own to repaint, and what a screen reader finds and presses. */
class ToolPair::PartComponent final : public juce::Component
{
public:
    PartComponent (ToolPair& pair, Part part)
        : owner (pair),
          self (part)
    {
        setInterceptsMouseClicks (false, false);
    }

    void paint (juce::Graphics& g) override
    {
        ButtonLook look;
        look.enabled = isEnabled();
        look.on = owner.isChosen (self);
        look.hovered = owner.hovered == self;
        look.pressed = owner.pressed == self;
        paintToolPlate (g, getLocalBounds(), look);
        owner.paintPart (g, getLocalBounds(), self, look);
    }

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override
    {
        return std::make_unique<Accessible> (*this);
    }

    bool isChoice = false;

private:
    struct Accessible final : juce::AccessibilityHandler
    {
        explicit Accessible (PartComponent& target)
            : AccessibilityHandler (target,
                  target.isChoice ? juce::AccessibilityRole::radioButton : juce::AccessibilityRole::button,
                  juce::AccessibilityActions().addAction (
                      juce::AccessibilityActionType::press, [&target] { target.press(); })),
              part (target)
        {
        }

        juce::AccessibleState getCurrentState() const override
        {
            auto state = AccessibilityHandler::getCurrentState();

            if (part.isChoice)
                state = part.owner.isChosen (part.self) ? state.withCheckable().withChecked() : state.withCheckable();

            return state;
        }

        juce::String getHelp() const override { return part.owner.tooltipOf (part.self); }

        PartComponent& part;
    };

    void press()
    {
        if (isEnabled())
            owner.act (self);
    }

    ToolPair& owner;
    const Part self;
};

ToolPair::ToolPair (const juce::String& name, const style::HeaderToolTokens::Pair& pairMetrics, ActsOn actsOn)
    : metrics (pairMetrics),
      trigger (actsOn),
      first (std::make_unique<PartComponent> (*this, Part::first)),
      second (std::make_unique<PartComponent> (*this, Part::second))
{
    setName (name);
    setTitle (name);
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    for (const auto part : { Part::first, Part::second })
    {
        addAndMakeVisible (componentOf (part));
        componentOf (part).setBounds (boundsOf (part));
    }

    setSize (metrics.width(), metrics.height);
}

ToolPair::~ToolPair() = default;

juce::Rectangle<int> ToolPair::boundsOf (Part part) const
{
    const juce::Rectangle<int> left (metrics.partWidth, metrics.height);
    return part == Part::none ? juce::Rectangle<int>()
        : part == Part::first ? left
                              : left.translated (metrics.partWidth + metrics.gap, 0);
}

ToolPair::Part ToolPair::partAt (juce::Point<int> position) const
{
    for (const auto part : { Part::first, Part::second })
        if (boundsOf (part).contains (position))
            return part;

    return Part::none;
}

void ToolPair::describeParts (const juce::String& firstTitle, const juce::String& secondTitle, bool areChoices)
{
    first->setTitle (firstTitle);
    second->setTitle (secondTitle);
    first->isChoice = areChoices;
    second->isChoice = areChoices;
}

bool ToolPair::isPartEnabled (Part part) const
{
    return part != Part::none && componentOf (part).isEnabled();
}

void ToolPair::setPartEnabled (Part part, bool shouldBeEnabled)
{
    auto& component = componentOf (part);

    if (component.isEnabled() == shouldBeEnabled)
        return;

    component.setEnabled (shouldBeEnabled);
    component.repaint();
}

void ToolPair::repaintPart (Part part)
{
    if (part != Part::none)
        componentOf (part).repaint();
}

juce::String ToolPair::getTooltip()
{
    return hovered == Part::none ? juce::String() : tooltipOf (hovered);
}

void ToolPair::setHovered (Part part)
{
    if (part == hovered)
        return;

    repaintPart (hovered);
    hovered = part;
    repaintPart (hovered);
}

void ToolPair::setPressed (Part part)
{
    if (part == pressed)
        return;

    repaintPart (pressed);
    pressed = part;
    repaintPart (pressed);
}

void ToolPair::mouseEnter (const juce::MouseEvent& event)
{
    setHovered (partAt (event.getPosition()));
}

void ToolPair::mouseMove (const juce::MouseEvent& event)
{
    setHovered (partAt (event.getPosition()));
}

void ToolPair::mouseExit (const juce::MouseEvent&)
{
    setHovered (Part::none);
}

void ToolPair::mouseDown (const juce::MouseEvent& event)
{
    const auto part = partAt (event.getPosition());
    setHovered (part);

    if (trigger == ActsOn::press)
    {
        setPressed (part);

        if (part != Part::none)
            act (part);
    }
    else if (event.mods.isLeftButtonDown())
    {
        armed = part;
        setPressed (part);
    }
}

void ToolPair::mouseDrag (const juce::MouseEvent& event)
{
    const auto part = partAt (event.getPosition());
    setHovered (part);

    if (trigger == ActsOn::click)
        setPressed (part == armed ? armed : Part::none);
}

void ToolPair::mouseUp (const juce::MouseEvent& event)
{
    const auto released = partAt (event.getPosition());
    const auto clicked = std::exchange (armed, Part::none);
    setPressed (Part::none);

    if (clicked != Part::none && clicked == released)
        act (clicked);
}

} // namespace quillon::ui_pro::controls
