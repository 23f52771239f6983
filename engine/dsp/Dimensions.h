#pragma once

#include <cstddef>

namespace kestreleq
{

/** Lane 0 (A) carries left or mid, lane 1 (B) right or side. */
inline constexpr std::size_t numLanes = 2;

/** SUB, 40, 160, 650 and 2.5K. */
inline constexpr std::size_t numBands = 5;

} // namespace kestreleq
