#pragma once

#include "engine/dsp/Dimensions.h"

#include <array>
#include <cstddef>

namespace kestreleq
{

/** How a parameter's normalised value reads as text; see ParameterText.h. */
enum class TextKind
{
    bandGain,
    airAmount,
    airStep,
    trimGain,
    stageGain,
    bypassState,
    breakMode,
    onOff
};

/** One parameter as the host sees it. Every value is 0 to 1; a stepped parameter holds only 0 or 1. */
struct ParameterInfo
{
    const char* id;
    const char* name;
    bool stepped;
    float defaultValue;
    TextKind text;
    const char* shortName = nullptr; // of at most 8 characters, where the name has more
};

/** Row numbers of parameterTable, which are also the host's parameter indices. */
enum class Parameter : std::size_t
{
    sub,
    hz40,
    hz160,
    hz650,
    hz2500,
    airGain,
    airBand,
    subR,
    hz40R,
    hz160R,
    hz650R,
    hz2500R,
    airGainR,
    airBandR,
    trim,
    bypass,
    breakMode,
    link,
    msMode,
    inAutoGain,
    outAutoGain,
    inGainLink,
    inGain1,
    inGain2,
    outGainLink,
    outGain1,
    outGain2,
    laneABypass,
    laneBBypass
};

/** The one table of parameters, in host order. */
inline constexpr std::array<ParameterInfo, 29> parameterTable { {
    { "sub", "SUB", false, 0.5f, TextKind::bandGain },
    { "40hz", "40", false, 0.5f, TextKind::bandGain },
    { "160hz", "160", false, 0.5f, TextKind::bandGain },
    { "650hz", "650", false, 0.5f, TextKind::bandGain },
    { "2500hz", "2.5K", false, 0.5f, TextKind::bandGain },
    { "airGain", "AIR GAIN", false, 0.0f, TextKind::airAmount },
    { "airBand", "AIR BAND", false, 0.0f, TextKind::airStep },
    { "subR", "SUB R/S", false, 0.5f, TextKind::bandGain },
    { "40hzR", "40 R/S", false, 0.5f, TextKind::bandGain },
    { "160hzR", "160 R/S", false, 0.5f, TextKind::bandGain },
    { "650hzR", "650 R/S", false, 0.5f, TextKind::bandGain },
    { "2500hzR", "2.5K R/S", false, 0.5f, TextKind::bandGain },
    { "airGainR", "AIR GAIN R/S", false, 0.0f, TextKind::airAmount, "AIR R/S" },
    { "airBandR", "AIR BAND R/S", false, 0.0f, TextKind::airStep, "FREQ R/S" },
    { "trim", "TRIM", false, 0.5f, TextKind::trimGain },
    { "bypass", "BYPASS", true, 0.0f, TextKind::bypassState },
    { "breakMode", "BREAK", true, 0.0f, TextKind::breakMode },
    { "link", "LINK", true, 1.0f, TextKind::onOff },
    { "msMode", "M/S MODE", true, 0.0f, TextKind::onOff },
    { "inAutoGain", "Input Auto Gain", true, 0.0f, TextKind::onOff, "In Auto" },
    { "outAutoGain", "Output Auto Gain", true, 0.0f, TextKind::onOff, "Out Auto" },
    { "inGainLink", "Input Gain Link", true, 1.0f, TextKind::onOff, "In Link" },
    { "inGain1", "Input Gain 1", false, 0.5f, TextKind::stageGain, "In 1" },
    { "inGain2", "Input Gain 2", false, 0.5f, TextKind::stageGain, "In 2" },
    { "outGainLink", "Output Gain Link", true, 1.0f, TextKind::onOff, "Out Link" },
    { "outGain1", "Output Gain 1", false, 0.5f, TextKind::stageGain, "Out 1" },
    { "outGain2", "Output Gain 2", false, 0.5f, TextKind::stageGain, "Out 2" },
    { "laneABypass", "Lane 1 Bypass", true, 0.0f, TextKind::bypassState, "Lane 1" },
    { "laneBBypass", "Lane 2 Bypass", true, 0.0f, TextKind::bypassState, "Lane 2" },
} };

inline constexpr std::size_t numParameters = parameterTable.size();

constexpr std::size_t indexOf (Parameter parameter)
{
    return static_cast<std::size_t> (parameter);
}

constexpr const ParameterInfo& infoOf (Parameter parameter)
{
    return parameterTable[indexOf (parameter)];
}

/** The parameter that holds on lane 0 or 1 what `laneA` holds on lane 0. Only for the band and air controls, whose
    second lane's rows follow as one run of the same order. */
constexpr Parameter onLane (Parameter laneA, std::size_t lane)
{
    return static_cast<Parameter> (indexOf (laneA) + lane * (indexOf (Parameter::subR) - indexOf (Parameter::sub)));
}

/** Band 0 (SUB) to 4 (2.5K) of lane 0 or 1. */
constexpr Parameter bandParameter (std::size_t lane, std::size_t band)
{
    return onLane (static_cast<Parameter> (indexOf (Parameter::sub) + band), lane);
}

/** Where a flag parameter switches on. */
inline constexpr float flagThreshold = 0.5f;

} // namespace kestreleq
