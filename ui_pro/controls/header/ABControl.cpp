#include "ui_pro/controls/header/ABControl.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{

ABControl::ABControl()
    : ToolPair ("A/B comparison", style::Theme::get().headerTools.abCompare, ActsOn::press)
{
    describeParts ("Settings A", "Settings B", true);
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
    repaintPart (Part::first);
    repaintPart (Part::second);
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

bool ABControl::isChosen (Part part) const
{
    return (part == Part::second) == (slot == ABSlot::B);
}

juce::String ABControl::tooltipOf (Part part) const
{
    const juce::String name (part == Part::second ? "B" : "A");
    return isChosen (part) ? "Settings " + name + " in use" : "Switch to settings " + name;
}

void ABControl::enablementChanged()
{
    repaint();
}

void ABControl::paint (juce::Graphics& g)
{
    const auto& palette = style::Theme::palette();
    const auto between =
        getLocalBounds().withLeft (boundsOf (Part::first).getRight()).withRight (boundsOf (Part::second).getX());

    g.setColour (isEnabled() ? palette.textSecondary : palette.textMuted);
    g.setFont (style::regularFont (15.0f));
    g.drawText ("/", between, juce::Justification::centred, false);
}

void ABControl::paintPart (juce::Graphics& g, juce::Rectangle<int> area, Part part, const ButtonLook& look) const
{
    g.setFont (look.on ? style::boldFont (16.0f) : style::regularFont (16.0f));
    g.drawText (part == Part::second ? "B" : "A", area, juce::Justification::centred, false);
}

} // namespace quillon::ui_pro::controls
