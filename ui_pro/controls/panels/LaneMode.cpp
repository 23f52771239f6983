#include "ui_pro/controls/panels/LaneMode.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{

LaneMode laneModeOfChoice (int index, const ParameterIds& ids)
{
    const auto* const found = std::find (ids.choiceIndices.begin(), ids.choiceIndices.end(), index);
    return found == ids.choiceIndices.end() ? LaneMode::stereo
                                            : static_cast<LaneMode> (found - ids.choiceIndices.begin() + 1);
}

int choiceOfLaneMode (LaneMode mode, const ParameterIds& ids)
{
    if (mode != LaneMode::stereo)
        return ids.choiceIndices[static_cast<std::size_t> (mode) - 1];

    int index = 0;

    while (laneModeOfChoice (index, ids) != LaneMode::stereo)
        ++index;

    return index;
}

} // namespace quillon::ui_pro::controls
