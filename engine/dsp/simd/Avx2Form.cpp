#include "engine/dsp/simd/VectorKernels.h"

#if KESTREL_HAS_X86_FORMS

// clang-format off: the registers first
#include "engine/dsp/simd/FourAvx2.h"
#include "engine/dsp/simd/VectorForm.h"

// clang-format on

namespace kestreleq::dsp::simd
{

const Kernels& avx2Kernels()
{
    static constexpr Kernels kernels { "AVX2", process, measure<false>, measure<true> };
    return kernels;
}

} // namespace kestreleq::dsp::simd

#endif
