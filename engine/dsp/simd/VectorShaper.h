#pragma once

// dsp::Waveshaper, four at a time.

#include "engine/dsp/simd/VectorSteps.h"

#if defined(_MSC_VER)
#define KESTREL_NOINLINE __declspec(noinline)
#else
#define KESTREL_NOINLINE __attribute__ ((noinline))
#endif

namespace kestreleq::dsp::simd
{
namespace
{

struct ShaperCurves
{
    Four a, b, c;

    static ShaperCurves load (const EnginePlan& plan, int i)
    {
        return { Four::load (plan.square + i), Four::load (plan.cube + i), Four::load (plan.fourth + i) };
    }
};

inline Four smallestStep()
{
    return Four::all (1e-5);
}

inline Four isStep (Four difference)
{
    return atLeast (difference.magnitude(), smallestStep());
}

inline Four scaled (Four x, double by)
{
    return x * Four::all (by);
}

struct DifferenceSums
{
    Four one, two, three, four, five;

    DifferenceSums (Four p, Four q)
    {
        const auto q2 = q * q;
        const auto q3 = q2 * q;
        const auto q4 = q3 * q;
        one = p + q;
        two = p * one + q2;
        three = p * two + q3;
        four = p * three + q4;
        five = p * four + q4 * q;
    }

    Four first (const ShaperCurves& k) const
    {
        return scaled (one, 1.0 / 2.0) +
            (scaled (k.a, 1.0 / 3.0) * two + (scaled (k.b, 1.0 / 4.0) * three + scaled (k.c, 1.0 / 5.0) * four));
    }

    Four ofSecond (const ShaperCurves& k) const
    {
        return scaled (two, 1.0 / 6.0) +
            (scaled (k.a, 1.0 / 12.0) * three + (scaled (k.b, 1.0 / 20.0) * four + scaled (k.c, 1.0 / 30.0) * five));
    }
};

inline Four firstAntiderivative (const ShaperCurves& k, Four x)
{
    const auto inner = scaled (k.b, 1.0 / 4.0) + x * scaled (k.c, 1.0 / 5.0);
    return x * x * (Four::all (1.0 / 2.0) + x * (scaled (k.a, 1.0 / 3.0) + x * inner));
}

/** The output where a step is too small for the method; where none is, it stays what it was. */
KESTREL_NOINLINE Four shapeSmallSteps (const ShaperCurves& k, Four regular, Four x, Four before, Four beforeThat)
{
    const auto moved = isStep (x - before);
    const auto movedBefore = isStep (before - beforeThat);
    const auto step = x - beforeThat;
    const DifferenceSums now (x, before), then (before, beforeThat);

    const auto late = select (moved, now.ofSecond (k), firstAntiderivative (k, x));
    const auto early = select (movedBefore, then.ofSecond (k), firstAntiderivative (k, before));
    const auto divided = scaled (late - early, 2.0) / step;
    const auto curve = x * (Four::all (1.0) + x * (k.a + x * (k.b + x * k.c)));

    return select (isStep (step), select (moved & movedBefore, regular, divided), select (moved, now.first (k), curve));
}

/** Four shapers, with what they keep of one sample for the next. */
template <bool hasFourth>
class Shapers
{
public:
    Shapers (const ShaperCurves& curvesToUse, Four before, Four beforeThat, unsigned numbersToWatch)
        : curves (curvesToUse),
          a (scaled (curves.a, 1.0 / 6.0)),
          b (scaled (curves.b, 1.0 / 10.0)),
          c (scaled (curves.c, 1.0 / 15.0)),
          x1 (before),
          x2 (beforeThat),
          step1 ((before - beforeThat).magnitude()),
          watched (numbersToWatch)
    {
        const DifferenceSums sums (x1, x2);
        two1 = sums.two;
        three1 = sums.three;
        four1 = sums.four;
    }

    Four process (Four x)
    {
        const auto step = (x - x1).magnitude();
        const auto least = smaller (smaller (step, step1), (x - x2).magnitude());

        // Of this sample and the last; the next one needs them.
        const auto pair = x + x1;
        const auto square1 = x1 * x1;
        const auto cube1 = square1 * x1;
        const auto two = x * pair + square1;
        const auto three = x * two + cube1;

        const auto sum = pair + x2;
        const auto sum2 = x * sum + two1;
        const auto sum3 = x * sum2 + three1;
        auto y = scaled (sum, 1.0 / 3.0);

        if constexpr (hasFourth)
        {
            y = y + (a * sum2 + (b * sum3 + c * (x * sum3 + four1)));
            four1 = x * three + cube1 * x1;
        }
        else
        {
            y = y + (a * sum2 + b * sum3);
        }

        if ((~atLeast (least, smallestStep()).bits() & watched) != 0)
            y = shapeSmallSteps (curves, y, x, x1, x2);

        two1 = two;
        three1 = three;
        step1 = step;
        x2 = x1;
        x1 = x;
        return y;
    }

    Four lastInput() const { return x1; }

    Four inputBeforeLast() const { return x2; }

private:
    const ShaperCurves curves;
    const Four a, b, c;
    Four x1, x2, step1, two1, three1, four1;
    const unsigned watched; // a bit for each of the four that has an input
};

} // namespace
} // namespace kestreleq::dsp::simd
