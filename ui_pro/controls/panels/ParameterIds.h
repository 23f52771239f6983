#pragma once

#include <array>
#include <cstdint>

namespace quillon::ui_pro::controls
{

/** Names the parameters of an effect. Each identifier is a null-terminated constant that outlives its reader; a null
    one says that the effect lacks the parameter, and leaves the matching control unconnected. */
struct ParameterIds
{
    /** In `flags`: the input and output controls stand in a panel of their own, not in the global one. */
    static constexpr std::int32_t separateInputOutput = 1;

    const char* bypass = nullptr;
    const char* link = nullptr;
    const char* msMode = nullptr;
    std::array<const char*, 4> laneBypass {}; // of the lane strips; a strip is enabled while its value is below 0.5
    const char* inGainLink = nullptr;
    const char* outGainLink = nullptr;
    const char* inAutoGain = nullptr;
    const char* outAutoGain = nullptr;
    const char* inGain1 = nullptr;
    const char* inGain2 = nullptr;
    const char* outGain1 = nullptr;
    const char* outGain2 = nullptr;
    std::int32_t flags = separateInputOutput;
    const char* choiceId = nullptr; // the channel mode of the first lane

    /** The choice's indices that mean left, right, side and mid; the lowest other one means stereo. */
    std::array<std::int32_t, 4> choiceIndices { 0, 1, 2, 3 };
};

} // namespace quillon::ui_pro::controls
