#pragma once

// Included by the sources of one instruction set each. Everything has internal linkage, so that no copy compiled for a
// newer processor can end up in code that runs on an older one.

#include <emmintrin.h>

namespace kestreleq::dsp::simd
{
namespace
{

/** Two doubles, one of each lane; also what a comparison gives, all bits or none. */
struct Pair
{
    static constexpr int size = 2;

    __m128d v;

    static Pair load (const double* p) { return { _mm_load_pd (p) }; }

    static Pair all (double x) { return { _mm_set1_pd (x) }; }

    void store (double* p) const { _mm_store_pd (p, v); }

    Pair swapped() const { return { _mm_shuffle_pd (v, v, 1) }; }

    Pair magnitude() const { return { _mm_andnot_pd (_mm_set1_pd (-0.0), v) }; }

    /** One bit for each element's sign. */
    unsigned bits() const { return static_cast<unsigned> (_mm_movemask_pd (v)); }
};

inline Pair operator+ (Pair a, Pair b)
{
    return { _mm_add_pd (a.v, b.v) };
}

inline Pair operator- (Pair a, Pair b)
{
    return { _mm_sub_pd (a.v, b.v) };
}

inline Pair operator* (Pair a, Pair b)
{
    return { _mm_mul_pd (a.v, b.v) };
}

inline Pair operator/ (Pair a, Pair b)
{
    return { _mm_div_pd (a.v, b.v) };
}

inline Pair operator& (Pair a, Pair b)
{
    return { _mm_and_pd (a.v, b.v) };
}

inline Pair atLeast (Pair a, Pair b)
{
    return { _mm_cmpge_pd (a.v, b.v) };
}

inline Pair smaller (Pair a, Pair b)
{
    return { _mm_min_pd (a.v, b.v) };
}

inline Pair select (Pair mask, Pair yes, Pair no)
{
    return { _mm_or_pd (_mm_and_pd (mask.v, yes.v), _mm_andnot_pd (mask.v, no.v)) };
}

/** The lower element of each. */
inline Pair lowerOf (Pair a, Pair b)
{
    return { _mm_unpacklo_pd (a.v, b.v) };
}

/** x where any of the three is not 0, otherwise 0. */
inline Pair whereAny (Pair a, Pair b, Pair c, Pair x)
{
    const auto bits = _mm_or_pd (_mm_or_pd (a.v, b.v), c.v);
    return { _mm_and_pd (_mm_cmpneq_pd (bits, _mm_setzero_pd()), x.v) };
}

/** One bit for each element that is not 0 in either. */
inline unsigned nonZero (Pair a, Pair b)
{
    return static_cast<unsigned> (_mm_movemask_pd (_mm_cmpneq_pd (_mm_or_pd (a.v, b.v), _mm_setzero_pd())));
}

} // namespace
} // namespace kestreleq::dsp::simd
