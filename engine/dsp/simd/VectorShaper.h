#pragma once

// dsp::Waveshaper, as many at a time as a register holds.

#include "engine/dsp/Waveshaper.h"
#include "engine/dsp/simd/VectorSteps.h"

namespace kestreleq::dsp::simd
{
namespace
{

template <typename Vector>
Vector scaled (Vector x, double by)
{
    return x * Vector::all (by);
}

template <typename Vector>
Vector isStep (Vector difference)
{
    return atLeast (difference.magnitude(), Vector::all (Waveshaper::smallestStep));
}

/** Sums of the products of two points, by degree. */
template <typename Vector>
struct DifferenceSums
{
    Vector one, two, three, four, five;

    DifferenceSums (Vector p, Vector q)
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
};

/** The shapers' polynomials and their antiderivatives. */
template <typename Vector>
class ShaperCurves
{
public:
    ShaperCurves (const EnginePlan& plan, int i)
        : a (Vector::load (plan.square + i)),
          b (Vector::load (plan.cube + i)),
          c (Vector::load (plan.fourth + i))
    {
    }

    /** The residue of an input after the two before it, whatever the steps between them; watched are the elements that
        count. */
    Vector residue (Vector x, Vector before, Vector beforeThat, unsigned watched) const
    {
        const auto step = x - beforeThat;
        const auto moved = isStep (x - before);
        const auto far = isStep (step);

        // In near silence nothing moves at all.
        if (((moved.bits() | far.bits()) & watched) == 0)
            return curve (x) - x;

        const DifferenceSums<Vector> now (x, before);
        const auto near = select (moved, firstDifference (now), curve (x));

        if ((far.bits() & watched) == 0)
            return near - x;

        const auto movedBefore = isStep (before - beforeThat);
        const DifferenceSums<Vector> then (before, beforeThat);
        const auto late = select (moved, differenceOfSecond (now), firstAntiderivative (x));
        const auto early = select (movedBefore, differenceOfSecond (then), firstAntiderivative (before));
        const auto divided = scaled (late - early, 2.0) / step;
        const auto regular = secondDifference (x, now, beforeThat, then);
        return select (far, select (moved & movedBefore, regular, divided), near) - x;
    }

private:
    Vector curve (Vector x) const { return x * (Vector::all (1.0) + x * (a + x * (b + x * c))); }

    Vector firstAntiderivative (Vector x) const
    {
        return x * x * (Vector::all (1.0 / 2.0) + x * (a3 + x * (b4 + x * c5)));
    }

    Vector firstDifference (const DifferenceSums<Vector>& sum) const
    {
        return scaled (sum.one, 1.0 / 2.0) + (a3 * sum.two + (b4 * sum.three + c5 * sum.four));
    }

    Vector differenceOfSecond (const DifferenceSums<Vector>& sum) const
    {
        return scaled (sum.two, 1.0 / 6.0) + (a12 * sum.three + (b20 * sum.four + c30 * sum.five));
    }

    Vector secondDifference (
        Vector p, const DifferenceSums<Vector>& late, Vector r, const DifferenceSums<Vector>& early) const
    {
        const auto one = late.one + r;
        const auto two = p * one + early.two;
        const auto three = p * two + early.three;
        const auto four = p * three + early.four;
        return scaled (one, 1.0 / 3.0) + (a6 * two + (b10 * three + c15 * four));
    }

    const Vector a, b, c;
    const Vector a3 = scaled (a, 1.0 / 3.0), b4 = scaled (b, 1.0 / 4.0), c5 = scaled (c, 1.0 / 5.0);
    const Vector a6 = scaled (a, 1.0 / 6.0), b10 = scaled (b, 1.0 / 10.0), c15 = scaled (c, 1.0 / 15.0);
    const Vector a12 = scaled (a, 1.0 / 12.0), b20 = scaled (b, 1.0 / 20.0), c30 = scaled (c, 1.0 / 30.0);
};

/** The inputs and residues of some shapers as if no step between inputs were small. Gives a bit for each four samples
    with one that is; the caller mends these. inputs holds the two inputs before the chunk already. */
template <typename Vector, bool hasFourth>
unsigned shapeLargeSteps (const EnginePlan& plan, unsigned watched, int i, const double* signals, double* inputs,
    double* residues, int numSamples)
{
    const auto drive = Vector::load (plan.drive + i);
    const auto a = scaled (Vector::load (plan.square + i), 1.0 / 6.0);
    const auto b = scaled (Vector::load (plan.cube + i), 1.0 / 10.0);
    const auto c = scaled (Vector::load (plan.fourth + i), 1.0 / 15.0);

    auto x2 = Vector::load (inputs);
    auto x1 = Vector::load (inputs + Vector::size);
    auto step = (x1 - x2).magnitude();
    const DifferenceSums<Vector> before (x1, x2);
    auto two1 = before.two;
    auto three1 = before.three;
    [[maybe_unused]] auto four1 = before.four;
    signals += i;
    inputs += 2 * Vector::size;
    unsigned small = 0;

    const auto sample = [&] (int n, Vector& least)
    {
        const auto x = drive * Vector::load (signals + numChains * n);
        x.store (inputs + Vector::size * n);
        step = (x - x1).magnitude();
        least = smaller (smaller (least, step), (x - x2).magnitude());

        // Of this sample and the last, for the next one.
        const auto one = x + x1;
        const auto square1 = x1 * x1;
        const auto cube1 = square1 * x1;
        const auto two = x * one + square1;
        const auto three = x * two + cube1;

        // Of this one and both before.
        const auto sum = one + x2;
        const auto sum2 = x * sum + two1;
        const auto sum3 = x * sum2 + three1;
        auto y = b * sum3;

        if constexpr (hasFourth)
        {
            y = y + c * (x * sum3 + four1);
            four1 = x * three + cube1 * x1;
        }

        y = scaled (sum, 1.0 / 3.0) + (a * sum2 + y);
        (y - x).store (residues + Vector::size * n);
        two1 = two;
        three1 = three;
        x2 = x1;
        x1 = x;
    };
    const auto note = [&] (int n, Vector least)
    {
        if ((~atLeast (least, Vector::all (Waveshaper::smallestStep)).bits() & watched) != 0)
            small |= 1u << (n / 4);
    };
    int n = 0;

    for (; n + 4 <= numSamples; n += 4)
    {
        auto least = step;
        sample (n, least);
        sample (n + 1, least);
        sample (n + 2, least);
        sample (n + 3, least);
        note (n, least);
    }

    for (; n < numSamples; ++n)
    {
        auto least = step;
        sample (n, least);
        note (n, least);
    }

    return small;
}

/** Computes anew what shapeLargeSteps could not, in the groups of four samples that it gave. */
template <typename Vector>
void mendSmallSteps (const EnginePlan& plan, unsigned watched, int i, unsigned groups, const double* inputs,
    double* residues, int numSamples)
{
    const ShaperCurves<Vector> curves (plan, i);

    for (int first = 0; groups != 0; first += 4, groups >>= 1)
    {
        if ((groups & 1u) == 0)
            continue;

        for (int n = first; n < first + 4 && n < numSamples; ++n)
        {
            const auto* const at = inputs + Vector::size * n;
            const auto x2 = Vector::load (at);
            const auto x1 = Vector::load (at + Vector::size);
            const auto x = Vector::load (at + 2 * Vector::size);
            const auto large = isStep (x - x1) & isStep (x1 - x2) & isStep (x - x2);

            if ((~large.bits() & watched) != 0)
                curves.residue (x, x1, x2, watched).store (residues + Vector::size * n);
        }
    }
}

/** The residues of some chains' shapers, from the i-th, for a chunk of their signals. Watched are those that have an
    input; what does not run keeps its memory. */
template <typename Vector, bool hasFourth>
void shape (const EnginePlan& plan, EngineState& state, unsigned running, unsigned watched, int i,
    const double* signals, double* residues, int numSamples)
{
    constexpr int size = Vector::size;
    constexpr unsigned numInputs = size * (chunkSize + 2);
    alignas (32) double inputs[numInputs];
    Vector::load (state.breaking.shaped2 + i).store (inputs);
    Vector::load (state.breaking.shaped1 + i).store (inputs + size);

    const auto small = shapeLargeSteps<Vector, hasFourth> (plan, watched, i, signals, inputs, residues, numSamples);

    if (small != 0)
        mendSmallSteps<Vector> (plan, watched, i, small, inputs, residues, numSamples);

    for (int k = 0; k < size; ++k)
    {
        if ((running >> k & 1u) == 0)
            continue;

        state.breaking.shaped2[i + k] = inputs[size * numSamples + k];
        state.breaking.shaped1[i + k] = inputs[size * (numSamples + 1) + k];
    }
}

} // namespace
} // namespace kestreleq::dsp::simd
