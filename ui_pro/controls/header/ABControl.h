#pragma once

#include "ui_pro/controls/buttons/ToolPair.h"

#include <functional>

namespace quillon::ui_pro::controls
{

enum class ABSlot
{
    A = 0,
    B = 1
};

/** The switch between two settings. It shows the slot that its owner reports; the owner does the switching. Message
    thread. */
class ABControl final : public ToolPair
{
public:
    /** Any may be unset; without the enabled query the control is enabled. */
    struct Callbacks
    {
        std::function<ABSlot()> currentSlot;
        std::function<void (ABSlot)> slotSelected;
        std::function<bool()> enabled;
    };

    ABControl();

    /** Replaces all callbacks and refreshes. */
    void setCallbacks (Callbacks newCallbacks);

    /** Shows a slot without telling the owner. */
    void setSlot (ABSlot newSlot);

    ABSlot getSlot() const { return slot; }

    /** Asks the queries again. */
    void refresh();

    /** What a press on a segment does: tells the owner, then shows what it reports. */
    void select (ABSlot newSlot);

    void paint (juce::Graphics& g) override;
    void enablementChanged() override;

protected:
    void paintPart (
        juce::Graphics& g, juce::Rectangle<int> area, Part part, const primitives::ButtonLook& look) const override;
    void act (Part part) override;
    juce::String tooltipOf (Part part) const override;

private:
    void showSlot();

    Callbacks callbacks;
    ABSlot slot = ABSlot::A;
};

} // namespace quillon::ui_pro::controls
