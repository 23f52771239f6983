#pragma once

#include "engine/dsp/simd/Kernels.h"

#include <array>

namespace kestreleq::dsp
{

/** The level of silence, and the lowest that is reported. */
inline constexpr float silenceLevel = -120.0f;

/** RMS levels in dB, one per lane. */
using LevelPair = std::array<float, 2>;

/** The RMS levels of one block in dB, one per lane: with link on the level of the channels' mean RMS in both places,
    else with midSide on those of mid and side, else those of left and right. A level that is not finite reads as
    silence. At least one sample. */
LevelPair measureLevels (
    const simd::Kernels& kernels, const float* left, const float* right, int numSamples, bool link, bool midSide);

struct OutputMeasure
{
    LevelPair levels;
    float correlation;
};

/** The levels of one block, and the correlation of its channels, -1 to 1; 0 when either is silent or not finite. One
    pass serves both where it can. */
OutputMeasure measureOutput (
    const simd::Kernels& kernels, const float* left, const float* right, int numSamples, bool link, bool midSide);

} // namespace kestreleq::dsp
