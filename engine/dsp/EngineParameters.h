#pragma once

#include "engine/dsp/Dimensions.h"

#include <array>

namespace kestreleq::dsp
{

/** What one lane is set to; every value 0 to 1. */
struct LaneParameters
{
    std::array<float, numBands> bands { 0.5f, 0.5f, 0.5f, 0.5f, 0.5f };
    float airAmount = 0.5f;
    float airStep = 0.5f;
    float inputGain = 0.5f;  // -9 to +9 dB
    float outputGain = 0.5f; // -9 to +9 dB
    bool bypass = false;
};

/** All that the engine is told once per block. */
struct EngineParameters
{
    std::array<LaneParameters, numLanes> lanes;
    float trim = 0.5f; // -12 to +12 dB
    bool bypass = false;
    bool breakMode = false;
    bool link = true;
    bool midSide = false;
};

} // namespace kestreleq::dsp
