#pragma once

// Between the host's single-precision channels and the engine's double-precision pairs; and what is measured of them.

#include "engine/dsp/simd/VectorSteps.h"

namespace kestreleq::dsp::simd
{
namespace
{

/** Both channels as pairs: mid/side encoded if wanted, with the lanes' input gains. */
template <bool midSide>
void enter (const EnginePlan& plan, const float* left, const float* right, double* pairs, int numSamples)
{
    const auto gain = Four::repeat (plan.inputGain);
    const auto put = [&] (Four x, double* destination)
    {
        if constexpr (midSide)
            x = sumAndDifference (x) * Four::all (0.5);

        (x * gain).store (destination);
    };
    int n = 0;

    for (; n + 4 <= numSamples; n += 4)
    {
        const auto l = _mm_loadu_ps (left + n);
        const auto r = _mm_loadu_ps (right + n);
        put (Four::interleavedLow (l, r), pairs + 2 * n);
        put (Four::interleavedHigh (l, r), pairs + 2 * n + 4);
    }

    // A pair at a time, the buffer has room for its double.
    for (; n < numSamples; ++n)
        put (Four::interleavedLow (_mm_load_ss (left + n), _mm_load_ss (right + n)), pairs + 2 * n);
}

/** Pairs to the channels. False when a sample is not finite there. */
inline bool leave (const double* pairs, float* left, float* right, int numSamples)
{
    auto poison = _mm_setzero_ps(); // 0 times what is not finite is not a number
    const auto zero = _mm_setzero_ps();
    int n = 0;

    for (; n + 4 <= numSamples; n += 4)
    {
        const auto a = Four::load (pairs + 2 * n).toFloats();
        const auto b = Four::load (pairs + 2 * n + 4).toFloats();
        poison = _mm_add_ps (poison, _mm_add_ps (_mm_mul_ps (a, zero), _mm_mul_ps (b, zero)));
        _mm_storeu_ps (left + n, _mm_shuffle_ps (a, b, 0x88));
        _mm_storeu_ps (right + n, _mm_shuffle_ps (a, b, 0xdd));
    }

    for (; n < numSamples; ++n)
    {
        const auto a = _mm_cvtpd_ps (Pair::load (pairs + 2 * n).v);
        poison = _mm_add_ps (poison, _mm_mul_ps (a, zero));
        _mm_store_ss (left + n, a);
        _mm_store_ss (right + n, _mm_shuffle_ps (a, a, 1));
    }

    return _mm_movemask_ps (_mm_cmpunord_ps (poison, poison)) == 0;
}

inline double total (Four x)
{
    const auto sum = x.low() + x.high();
    return _mm_cvtsd_f64 ((sum + sum.swapped()).v);
}

template <bool midSide>
PowerSums measure (const float* left, const float* right, int numSamples)
{
    auto first = Four::zero(), second = Four::zero(), product = Four::zero();
    const auto add = [&] (Four l, Four r)
    {
        if constexpr (midSide)
        {
            const auto mid = (l + r) * Four::all (0.5);
            const auto side = (l - r) * Four::all (0.5);
            first = first + mid * mid;
            second = second + side * side;
        }
        else
        {
            first = first + l * l;
            second = second + r * r;
            product = product + l * r;
        }
    };
    int n = 0;

    for (; n + 4 <= numSamples; n += 4)
        add (Four::fromFloats (_mm_loadu_ps (left + n)), Four::fromFloats (_mm_loadu_ps (right + n)));

    for (; n < numSamples; ++n)
        add (Four::fromFloats (_mm_load_ss (left + n)), Four::fromFloats (_mm_load_ss (right + n)));

    return { total (first), total (second), total (product) };
}

} // namespace
} // namespace kestreleq::dsp::simd
