#pragma once

#include <array>

namespace kestreleq::dsp
{

/** The level of silence, and the lowest that is reported. */
inline constexpr float silenceLevel = -120.0f;

/** The RMS levels of one block in dB, one per lane: with link on the level of the channels' mean RMS in both places,
    else with midSide on those of mid and side, else those of left and right. A level that is not finite reads as
    silence. At least one sample. */
std::array<float, 2> measureLevels (const float* left, const float* right, int numSamples, bool link, bool midSide);

/** The correlation of two channels over a block, -1 to 1; 0 when either is silent or not finite. */
float measureCorrelation (const float* left, const float* right, int numSamples);

} // namespace kestreleq::dsp
