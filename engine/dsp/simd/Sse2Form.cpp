#include "engine/dsp/simd/VectorKernels.h"

#if KESTREL_HAS_X86_FORMS

// clang-format off: the registers first
#include "engine/dsp/simd/FourSse2.h"
#include "engine/dsp/simd/VectorForm.h"

// clang-format on

namespace kestreleq::dsp::simd
{

const Kernels& sse2Kernels()
{
    static constexpr Kernels kernels { "SSE2", process, measure<false>, measure<true> };
    return kernels;
}

} // namespace kestreleq::dsp::simd

#endif
