#include "editor/header/AbComparison.h"

#include <utility>

namespace kestreleq
{

bool AbComparison::switchTo (std::uint32_t newSlot)
{
    if (newSlot == *slot || newSlot >= snapshots.size())
        return false;

    const auto oldSlot = *slot;
    snapshots[oldSlot] = processor.copyState();

    auto& history = processor.getCore().getHistory();
    history.perform (stepName,
        [&]
        {
            // The history outlives the editor, and with it this.
            history.record (
                [letter = slot, newSlot] { *letter = newSlot; }, [letter = slot, oldSlot] { *letter = oldSlot; });

            if (const auto& snapshot = snapshots[newSlot])
                processor.applySnapshot (*snapshot, stepName);
        });

    return true;
}

bool AbComparison::move (bool (EditHistory::*step)())
{
    const auto oldSlot = *slot;
    auto settings = processor.copyState();

    if (! (processor.getCore().getHistory().*step)())
        return false;

    if (*slot == oldSlot)
        return true;

    snapshots[oldSlot] = std::move (settings);

    if (const auto& snapshot = snapshots[*slot]) // as it was left, whatever the host has changed since
        processor.bringBack (*snapshot);

    return true;
}

} // namespace kestreleq
