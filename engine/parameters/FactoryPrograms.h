#pragma once

#include "engine/parameters/ParameterTable.h"

#include <array>
#include <cstddef>

namespace kestreleq
{

/** A factory program: what sets it apart from the parameters' defaults. Both lanes have the same band settings. */
struct FactoryProgram
{
    const char* name;
    const char* description;
    std::array<float, numBands> bands;
    float airGain;
    float airBand;
    float trim;
    float breakMode;
};

inline constexpr std::array<FactoryProgram, 6> factoryPrograms { {
    { "Flat", "All bands centered, no EQ", { 0.5f, 0.5f, 0.5f, 0.5f, 0.5f }, 0.0f, 0.5f, 0.5f, 0.0f },
    { "Vocal Presence", "Mid-forward, gentle air lift", { 0.5f, 0.5f, 0.45f, 0.6f, 0.65f }, 0.3f, 0.5f, 0.48f, 0.0f },
    { "Bass Boost", "Sub and 40Hz lift, slight high trim", { 0.7f, 0.65f, 0.55f, 0.5f, 0.45f }, 0.0f, 0.5f, 0.45f,
        0.0f },
    { "Bright & Airy", "High-shelf air with gentle 2.5K push", { 0.5f, 0.5f, 0.5f, 0.5f, 0.6f }, 0.5f, 0.75f, 0.47f,
        0.0f },
    { "Smiley Curve", "Scooped mids, boosted lows and highs", { 0.65f, 0.6f, 0.45f, 0.4f, 0.6f }, 0.4f, 0.5f, 0.45f,
        0.0f },
    { "Lo-Fi Crunch", "Heavy tilt with break mode engaged", { 0.55f, 0.55f, 0.6f, 0.55f, 0.4f }, 0.0f, 0.25f, 0.42f,
        1.0f },
} };

/** The value of every parameter under a program, in the order of parameterTable. */
constexpr std::array<float, numParameters> valuesOf (const FactoryProgram& program)
{
    std::array<float, numParameters> values {};

    for (std::size_t i = 0; i < numParameters; ++i)
        values[i] = parameterTable[i].defaultValue;

    for (std::size_t lane = 0; lane < numLanes; ++lane)
    {
        for (std::size_t band = 0; band < numBands; ++band)
            values[indexOf (bandParameter (lane, band))] = program.bands[band];

        values[indexOf (onLane (Parameter::airGain, lane))] = program.airGain;
        values[indexOf (onLane (Parameter::airBand, lane))] = program.airBand;
    }

    values[indexOf (Parameter::trim)] = program.trim;
    values[indexOf (Parameter::breakMode)] = program.breakMode;
    return values;
}

} // namespace kestreleq
