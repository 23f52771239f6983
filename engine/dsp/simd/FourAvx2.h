#pragma once

#include "engine/dsp/simd/Pair.h"

#include <immintrin.h>

namespace kestreleq::dsp::simd
{
namespace
{

/** Four doubles in one register; see FourSse2.h, which says what each operation does. */
struct Four
{
    static constexpr int size = 4;

    __m256d v;

    static Four load (const double* p) { return { _mm256_loadu_pd (p) }; }

    static Four repeat (const double* p) { return { _mm256_broadcast_pd (reinterpret_cast<const __m128d*> (p)) }; }

    static Four all (double x) { return { _mm256_set1_pd (x) }; }

    static Four zero() { return { _mm256_setzero_pd() }; }

    static Four interleavedLow (__m128 left, __m128 right) { return fromFloats (_mm_unpacklo_ps (left, right)); }

    static Four interleavedHigh (__m128 left, __m128 right) { return fromFloats (_mm_unpackhi_ps (left, right)); }

    static Four fromFloats (__m128 x) { return { _mm256_cvtps_pd (x) }; }

    __m128 toFloats() const { return _mm256_cvtpd_ps (v); }

    void store (double* p) const { _mm256_storeu_pd (p, v); }

    Pair low() const { return { _mm256_castpd256_pd128 (v) }; }

    Pair high() const { return { _mm256_extractf128_pd (v, 1) }; }

    Four swapped() const { return { _mm256_permute_pd (v, 5) }; }

    Four magnitude() const { return { _mm256_andnot_pd (_mm256_set1_pd (-0.0), v) }; }

    unsigned bits() const { return static_cast<unsigned> (_mm256_movemask_pd (v)); }
};

inline Four operator+ (Four a, Four b)
{
    return { _mm256_add_pd (a.v, b.v) };
}

inline Four operator- (Four a, Four b)
{
    return { _mm256_sub_pd (a.v, b.v) };
}

inline Four operator* (Four a, Four b)
{
    return { _mm256_mul_pd (a.v, b.v) };
}

inline Four operator/ (Four a, Four b)
{
    return { _mm256_div_pd (a.v, b.v) };
}

inline Four operator& (Four a, Four b)
{
    return { _mm256_and_pd (a.v, b.v) };
}

inline Four atLeast (Four a, Four b)
{
    return { _mm256_cmp_pd (a.v, b.v, _CMP_GE_OQ) };
}

inline Four smaller (Four a, Four b)
{
    return { _mm256_min_pd (a.v, b.v) };
}

inline Four select (Four mask, Four yes, Four no)
{
    return { _mm256_blendv_pd (no.v, yes.v, mask.v) };
}

inline Four lowerOf (Four a, Four b)
{
    return { _mm256_unpacklo_pd (a.v, b.v) };
}

inline Four whereAny (Four a, Four b, Four c, Four x)
{
    const auto bits = _mm256_or_pd (_mm256_or_pd (a.v, b.v), c.v);
    return { _mm256_and_pd (_mm256_cmp_pd (bits, _mm256_setzero_pd(), _CMP_NEQ_UQ), x.v) };
}

using BreakVector = Four;

inline unsigned nonZero (Four a, Four b)
{
    const auto bits = _mm256_or_pd (a.v, b.v);
    return static_cast<unsigned> (_mm256_movemask_pd (_mm256_cmp_pd (bits, _mm256_setzero_pd(), _CMP_NEQ_UQ)));
}

} // namespace
} // namespace kestreleq::dsp::simd
