#include "ui_pro/controls/header/ABControl.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{

ABControl::ABControl()
    : ToolPair ("A/B comparison", style::Theme::get().headerTools.abCompare, "Settings A", "Settings B")
{
    makeChoices();
    showSlot();
}

void ABControl::setCallbacks (Callbacks newCallbacks)
{
    callbacks = std::move (newCallbacks);
    refresh();
}

void ABControl::setSlot (ABSlot newSlot)
{
    if (newSlot == slot)
        return;

    slot = newSlot;
    showSlot();
}

void ABControl::showSlot()
{
    getButton (Part::first).setToggleState (slot == ABSlot::A, juce::dontSendNotification);
    getButton (Part::second).setToggleState (slot == ABSlot::B, juce::dontSendNotification);
}

void ABControl::refresh()
{
    setEnabled (callbacks.enabled == nullptr || callbacks.enabled());

    if (callbacks.currentSlot != nullptr)
        setSlot (callbacks.currentSlot());
}

void ABControl::select (ABSlot newSlot)
{
    refresh();

    if (! isEnabled())
        return;

    setSlot (newSlot);

    if (callbacks.slotSelected != nullptr)
        callbacks.slotSelected (newSlot);

    refresh();
}

void ABControl::act (Part part)
{
    select (part == Part::second ? ABSlot::B : ABSlot::A);
}

juce::String ABControl::tooltipOf (Part part) const
{
    const juce::String name (part == Part::second ? "B" : "A");
    return getButton (part).getToggleState() ? "Settings " + name + " in use" : "Switch to settings " + name;
}

void ABControl::enablementChanged()
{
    repaint();
}

void ABControl::paint (juce::Graphics& g)
{
    const auto& palette = style::Theme::palette();
    const auto between =
        getLocalBounds().withLeft (getButton (Part::first).getRight()).withRight (getButton (Part::second).getX());

    g.setColour (isEnabled() ? palette.textSecondary : palette.textMuted);
    g.setFont (style::regularFont (15.0f));
    g.drawText ("/", between, juce::Justification::centred, false);
}

void ABControl::paintPart (
    juce::Graphics& g, juce::Rectangle<int> area, Part part, const primitives::ButtonLook& look) const
{
    g.setFont (look.on ? style::boldFont (16.0f) : style::regularFont (16.0f));
    g.drawText (part == Part::second ? "B" : "A", area, juce::Justification::centred, false);
}

} // namespace quillon::ui_pro::controls
