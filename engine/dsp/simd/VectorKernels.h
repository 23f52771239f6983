#pragma once

#include "engine/dsp/simd/Kernels.h"

#if defined(__x86_64__) || defined(_M_X64)
#define KESTREL_HAS_X86_FORMS 1
#else
#define KESTREL_HAS_X86_FORMS 0
#endif

#if KESTREL_HAS_X86_FORMS

namespace kestreleq::dsp::simd
{

// Each is compiled for its own instruction set, in a file of its own.
const Kernels& sse2Kernels(); // any 64-bit x86 processor
const Kernels& avx2Kernels(); // only where kernelsFor gives it

} // namespace kestreleq::dsp::simd

#endif
