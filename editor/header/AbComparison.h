#pragma once

#include "engine/KestrelProcessor.h"

#include <array>
#include <cstdint>
#include <optional>

namespace kestreleq
{

/** Two complete settings between which the user flips. Lives as long as the editor; what is heard belongs to the
    current slot, and a slot's stored settings are those it was left with. Message thread. */
class AbComparison
{
public:
    explicit AbComparison (KestrelProcessor& processorToSwitch)
        : processor (processorToSwitch)
    {
    }

    /** 0 is A, 1 is B. */
    std::uint32_t getSlot() const { return slot; }

    /** Stores the settings of the slot that is left and brings back the other's, as one undoable step; on its first
        visit a slot starts with what is heard. False when the slot is the current one, or there is none such. */
    bool switchTo (std::uint32_t newSlot);

private:
    KestrelProcessor& processor;
    std::uint32_t slot = 0;
    std::array<std::optional<juce::ValueTree>, 2> snapshots;
};

} // namespace kestreleq
