#include "engine/dsp/simd/Kernels.h"

#include "engine/dsp/simd/VectorKernels.h"

#if KESTREL_HAS_X86_FORMS && defined(_MSC_VER)
#include <intrin.h>
#endif

namespace kestreleq::dsp::simd
{
namespace
{

/** Whether both the processor and the operating system keep 256-bit registers. */
bool machineHasAvx2()
{
#if ! KESTREL_HAS_X86_FORMS
    return false;
#elif defined(_MSC_VER)
    int registers[4] = {};
    __cpuid (registers, 0);

    if (registers[0] < 7)
        return false;

    constexpr int osSavesRegisters = 1 << 27, avx = 1 << 28, avx2 = 1 << 5;
    __cpuid (registers, 1);

    if ((registers[2] & osSavesRegisters) == 0 || (registers[2] & avx) == 0 || (_xgetbv (0) & 6) != 6)
        return false;

    __cpuidex (registers, 7, 0);
    return (registers[1] & avx2) != 0;
#else
    return __builtin_cpu_supports ("avx2") != 0;
#endif
}

} // namespace

const Kernels& kernelsFor ([[maybe_unused]] InstructionSet set)
{
#if KESTREL_HAS_X86_FORMS
    static const bool hasAvx2 = machineHasAvx2();

    if (set == InstructionSet::avx2 && hasAvx2)
        return avx2Kernels();

    if (set != InstructionSet::scalar)
        return sse2Kernels();
#endif

    return scalarKernels();
}

const Kernels& bestKernels()
{
    static const Kernels& kernels = kernelsFor (InstructionSet::KESTREL_BEST_INSTRUCTION_SET);
    return kernels;
}

} // namespace kestreleq::dsp::simd
