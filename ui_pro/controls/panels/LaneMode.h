#pragma once

#include "ui_pro/controls/panels/ParameterIds.h"

#include <array>
#include <cstddef>

namespace quillon::ui_pro::controls
{

/** The channel that a lane carries. */
enum class LaneMode
{
    stereo,
    left,
    right,
    side,
    mid
};

constexpr std::array<const char*, 5> laneModeTexts { "STEREO", "LEFT", "RIGHT", "SIDE", "MID" };

/** What the other lane of a pair carries. */
constexpr LaneMode partnerOf (LaneMode mode)
{
    constexpr std::array partners { LaneMode::stereo, LaneMode::right, LaneMode::left, LaneMode::mid, LaneMode::side };
    return partners[static_cast<std::size_t> (mode)];
}

/** The mode that a choice's index means; an index outside the mapping means stereo. */
LaneMode laneModeOfChoice (int index, const ParameterIds& ids);

/** The choice's index for a mode. */
int choiceOfLaneMode (LaneMode mode, const ParameterIds& ids);

} // namespace quillon::ui_pro::controls
