#pragma once

#include "engine/dsp/Cookbook.h"
#include "engine/dsp/simd/EngineData.h"

#include <cstddef>

namespace kestreleq::dsp
{

/** Added to a filter's state so that a decaying tail never becomes denormal. A single-precision constant. */
inline constexpr double antiDenormal = static_cast<double> (1e-25f);

/** Writes a section, with a linear gain before it, to place i of a set. */
template <unsigned count>
void writeSection (simd::SectionSet<count>& set, int i, const BiquadCoefficients& c, double gain = 1.0)
{
    set.direct[i] = c.b0 * gain;
    set.toFirst[i] = (c.b1 - c.a1 * c.b0) * gain;
    set.toSecond[i] = (c.b2 - c.a2 * c.b0) * gain;
    set.feedback1[i] = c.a1;
    set.feedback2[i] = c.a2;
    set.antiDenormal[i] = antiDenormal;
}

/** Leaves no section at place i: what comes in goes out. */
template <unsigned count>
void writePassThrough (simd::SectionSet<count>& set, int i)
{
    set.direct[i] = 1.0;
    set.toFirst[i] = set.toSecond[i] = set.feedback1[i] = set.feedback2[i] = set.antiDenormal[i] = 0.0;
}

/** Puts place i at rest. */
template <unsigned count>
void clearSection (simd::SectionMemory<count>& memory, int i)
{
    memory.first[i] = memory.second[i] = 0.0;
}

/** The place of a lane's chain: band 0 to 4, or the air after them. */
constexpr int chainOf (std::size_t lane, std::size_t position)
{
    return static_cast<int> (2 * position + lane);
}

} // namespace kestreleq::dsp
