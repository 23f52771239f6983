#pragma once

#include "engine/dsp/simd/EngineData.h"

namespace kestreleq::dsp::simd
{

enum class InstructionSet
{
    scalar,
    sse2,
    avx2
};

/** One form of the engine's inner loops. All give the same result to the last bit (the sums to rounding). */
struct Kernels
{
    const char* name;

    /** Processes up to chunkSize samples of both channels in place, without the break stage when there is no chunk for
        it. False when something was not finite: then nothing has changed, and the scalar form must do the work. */
    bool (*process) (const EnginePlan& plan, EngineState& state, const BreakChunk* breakChunk, float* left,
        float* right, int numSamples);

    /** Sums of left and right. */
    PowerSums (*measure) (const float* left, const float* right, int numSamples);

    /** Sums of (left + right) / 2 and (left - right) / 2, without their product. */
    PowerSums (*measureMidSide) (const float* left, const float* right, int numSamples);
};

/** The definition of what all the others compute. It never fails. */
const Kernels& scalarKernels();

/** The form for an instruction set, or the next simpler one that this machine and this build have. */
const Kernels& kernelsFor (InstructionSet set);

/** The best form that this machine has, found once. */
const Kernels& bestKernels();

} // namespace kestreleq::dsp::simd
