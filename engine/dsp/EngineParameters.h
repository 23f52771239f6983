#pragma once

#include "engine/dsp/Dimensions.h"

#include <array>

namespace kestreleq::dsp
{

// What the gains' values 0 to 1 span, in dB, with 0 dB in the middle.
inline constexpr double stageGainSpan = 18.0;
inline constexpr double trimGainSpan = 24.0;

/** What one lane is set to; every value 0 to 1. */
struct LaneParameters
{
    std::array<float, numBands> bands { 0.5f, 0.5f, 0.5f, 0.5f, 0.5f };
    float airAmount = 0.5f;
    float airStep = 0.5f;
    float inputGain = 0.5f; // of stageGainSpan
    float outputGain = 0.5f;
    bool bypass = false;
};

/** All that the engine is told once per block. */
struct EngineParameters
{
    std::array<LaneParameters, numLanes> lanes;
    float trim = 0.5f; // of trimGainSpan
    bool bypass = false;
    bool breakMode = false;
    bool link = true;
    bool midSide = false;
};

} // namespace kestreleq::dsp
