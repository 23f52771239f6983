#pragma once

// The steps of one sample, for whichever registers were included before. They do the scalar form's operations in the
// scalar form's order.

#include "engine/dsp/simd/EngineData.h"

namespace kestreleq::dsp::simd
{
namespace
{

/** The width of the rows that two lanes' chains are added up in: the even chains of both lanes, and the odd ones. */
constexpr int width = 4;

/** The states of sections side by side, in registers. */
template <typename Vector>
struct Sections
{
    Vector first, second;

    template <unsigned count>
    static Sections load (const SectionMemory<count>& memory, int i)
    {
        return { Vector::load (memory.first + i), Vector::load (memory.second + i) };
    }

    template <unsigned count>
    void store (SectionMemory<count>& memory, int i) const
    {
        first.store (memory.first + i);
        second.store (memory.second + i);
    }

    /** To the next sample. Asleep says that some of the sections may be at rest and must stay so until something comes
        in; otherwise their anti-denormal constant needs no test. */
    template <bool asleep, unsigned count>
    void advance (const SectionSet<count>& set, int i, Vector x, Vector antiDenormal)
    {
        const auto drawn = Vector::load (set.feedback2 + i) * first;
        const auto fed = Vector::load (set.toSecond + i) * x;
        const auto next = (Vector::load (set.toFirst + i) * x + second) - Vector::load (set.feedback1 + i) * first;

        if constexpr (asleep)
            antiDenormal = whereAny (x, next, fed - drawn, antiDenormal);

        second = (fed + antiDenormal) - drawn;
        first = next;
    }
};

/** The output filters with the gain after them. */
template <bool asleep>
Pair outputStep (const EnginePlan& plan, Sections<Pair>& sections, Pair x)
{
    const auto y = Pair::load (plan.output.direct) * x + sections.first;
    sections.template advance<asleep> (plan.output, 0, x, Pair::load (plan.output.antiDenormal));
    return y * Pair::load (plan.outputGain);
}

/** Left and right of mid and side, or the other way round but for the half. */
template <typename Vector>
Vector sumAndDifference (Vector x)
{
    const auto other = x.swapped();
    return lowerOf (x + other, x - other);
}

} // namespace
} // namespace kestreleq::dsp::simd
