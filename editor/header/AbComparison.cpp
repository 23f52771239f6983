#include "editor/header/AbComparison.h"

namespace kestreleq
{

bool AbComparison::switchTo (std::uint32_t newSlot)
{
    if (newSlot == slot || newSlot >= snapshots.size())
        return false;

    snapshots[slot] = processor.getCore().copyState();
    slot = newSlot;

    if (const auto& snapshot = snapshots[slot])
        processor.applySnapshot (*snapshot, "A/B");

    return true;
}

} // namespace kestreleq
