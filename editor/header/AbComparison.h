#pragma once

#include "engine/KestrelProcessor.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace kestreleq
{

/** Two complete settings between which the user flips. Lives as long as the editor; what is heard belongs to the
    current slot, and a slot's stored settings are those it was left with, by a flip or by undoing one. Message thread.
 */
class AbComparison
{
public:
    explicit AbComparison (KestrelProcessor& processorToSwitch)
        : processor (processorToSwitch)
    {
    }

    /** 0 is A, 1 is B. */
    std::uint32_t getSlot() const { return *slot; }

    /** Stores the settings of the slot that is left and brings back the other's, as one undoable step; on its first
        visit a slot starts with what is heard. False when the slot is the current one, or there is none such. */
    bool switchTo (std::uint32_t newSlot);

    /** One step of the history back or forth, and to the slot that was current then. False when there is none. */
    bool undo() { return move (&EditHistory::undo); }

    bool redo() { return move (&EditHistory::redo); }

private:
    static constexpr auto stepName = "A/B";

    bool move (bool (EditHistory::*step)());

    KestrelProcessor& processor;
    std::shared_ptr<std::uint32_t> slot = std::make_shared<std::uint32_t> (0); // the history's steps have it too
    std::array<std::optional<PluginState>, 2> snapshots;
};

} // namespace kestreleq
