#pragma once

#include "engine/parameters/ParameterTable.h"

#include <array>

namespace kestreleq
{

/** One knob of a lane, which is also one value that its chart shows. */
struct LaneKnob
{
    const char* caption;
    Parameter parameter; // lane A's
    int colourId;        // accent role
    float position;      // and text, until the parameter's own arrive
    const char* text;
    int steps;        // 0: continuous
    double frequency; // Hz, of its node on the chart; the air nodes' moves
};

inline constexpr std::size_t airAmountKnob = 5;
inline constexpr std::size_t airStepKnob = 6;

/** From left to right. */
inline constexpr std::array<LaneKnob, 7> laneKnobs { {
    { "SUB", Parameter::sub, 12, 0.5f, "0.0", 0, 24.0 },
    { "40", Parameter::hz40, 13, 0.5f, "0.0", 0, 40.0 },
    { "160", Parameter::hz160, 14, 0.5f, "0.0", 0, 160.0 },
    { "650", Parameter::hz650, 0, 0.5f, "0.0", 0, 650.0 },
    { "2.5K", Parameter::hz2500, 1, 0.5f, "0.0", 0, 2500.0 },
    { "AIR", Parameter::airGain, 2, 0.5f, "0.0", 0, 2500.0 },
    { "FREQ", Parameter::airBand, 2, 0.0f, "2.5K", 5, 2500.0 },
} };

} // namespace kestreleq
