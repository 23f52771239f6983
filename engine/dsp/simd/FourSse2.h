#pragma once

#include "engine/dsp/simd/Pair.h"

namespace kestreleq::dsp::simd
{
namespace
{

/** Four doubles in two registers. */
struct Four
{
    static constexpr int size = 4;

    __m128d l, h;

    static Four load (const double* p) { return { _mm_load_pd (p), _mm_load_pd (p + 2) }; }

    /** A pair twice over. */
    static Four repeat (const double* p) { return { _mm_load_pd (p), _mm_load_pd (p) }; }

    static Four all (double x) { return { _mm_set1_pd (x), _mm_set1_pd (x) }; }

    static Four zero() { return { _mm_setzero_pd(), _mm_setzero_pd() }; }

    /** Two samples of both channels: l0, r0, l1, r1, from the lower or the upper half of four of each. */
    static Four interleavedLow (__m128 left, __m128 right) { return fromFloats (_mm_unpacklo_ps (left, right)); }

    static Four interleavedHigh (__m128 left, __m128 right) { return fromFloats (_mm_unpackhi_ps (left, right)); }

    static Four fromFloats (__m128 x) { return { _mm_cvtps_pd (x), _mm_cvtps_pd (_mm_movehl_ps (x, x)) }; }

    __m128 toFloats() const { return _mm_movelh_ps (_mm_cvtpd_ps (l), _mm_cvtpd_ps (h)); }

    void store (double* p) const
    {
        _mm_store_pd (p, l);
        _mm_store_pd (p + 2, h);
    }

    Pair low() const { return { l }; }

    Pair high() const { return { h }; }

    /** Each pair's elements exchanged. */
    Four swapped() const { return { _mm_shuffle_pd (l, l, 1), _mm_shuffle_pd (h, h, 1) }; }
};

inline Four operator+ (Four a, Four b)
{
    return { _mm_add_pd (a.l, b.l), _mm_add_pd (a.h, b.h) };
}

inline Four operator- (Four a, Four b)
{
    return { _mm_sub_pd (a.l, b.l), _mm_sub_pd (a.h, b.h) };
}

inline Four operator* (Four a, Four b)
{
    return { _mm_mul_pd (a.l, b.l), _mm_mul_pd (a.h, b.h) };
}

inline Four lowerOf (Four a, Four b)
{
    return { _mm_unpacklo_pd (a.l, b.l), _mm_unpacklo_pd (a.h, b.h) };
}

inline Four whereAny (Four a, Four b, Four c, Four x)
{
    return { whereAny (a.low(), b.low(), c.low(), x.low()).v, whereAny (a.high(), b.high(), c.high(), x.high()).v };
}

/** What the break stage works on: it has too much at hand for two registers of each. */
using BreakVector = Pair;

inline unsigned nonZero (Four a, Four b)
{
    return nonZero (a.low(), b.low()) | nonZero (a.high(), b.high()) << 2;
}

} // namespace
} // namespace kestreleq::dsp::simd
