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
    const char* help;
};

inline constexpr std::size_t airAmountKnob = 5;
inline constexpr std::size_t airStepKnob = 6;

/** From left to right. */
inline constexpr std::array<LaneKnob, 7> laneKnobs { {
    { "SUB", Parameter::sub, 12, 0.5f, "0.0", 0, 24.0, "Low shelf around 36 Hz" },
    { "40", Parameter::hz40, 13, 0.5f, "0.0", 0, 40.0, "Wide bell around 40 Hz" },
    { "160", Parameter::hz160, 14, 0.5f, "0.0", 0, 160.0, "Wide bell around 155 Hz" },
    { "650", Parameter::hz650, 0, 0.5f, "0.0", 0, 650.0, "Wide bell around 600 Hz" },
    { "2.5K", Parameter::hz2500, 1, 0.5f, "0.0", 0, 2500.0, "High shelf, from far below its name" },
    { "AIR", Parameter::airGain, 2, 0.5f, "0.0", 0, 2500.0, "Amount of air; none while FREQ is at 2.5K" },
    { "FREQ", Parameter::airBand, 2, 0.0f, "2.5K", 5, 2500.0, "Where the air begins; at 2.5K it is off" },
} };

} // namespace kestreleq
