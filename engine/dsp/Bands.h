#pragma once

#include "engine/dsp/BiquadDesigner.h"
#include "engine/dsp/Dimensions.h"

#include <array>
#include <cstddef>
#include <span>

namespace kestreleq::dsp
{

/** Points of a band's weight map, at the values 0, 0.25, 0.5, 0.75 and 1. */
using WeightPoints = std::array<double, 5>;

/** All that sets one band apart. The break filter is a high-pass, followed by a low-pass in all bands but the last. */
struct BandRow
{
    SectionSettings filter;
    WeightPoints weights;
    float shaperSquare;
    float shaperCube;
    double breakMixExponent; // the break residue is mixed in by 10 to this power
    std::array<SectionSettings, 2> breakFilter;
    std::size_t numBreakSections;

    constexpr std::span<const SectionSettings> breakSections() const
    {
        return { breakFilter.data(), numBreakSections };
    }
};

constexpr SectionSettings highPass (double frequency, double q)
{
    return { FilterType::highPass, frequency, q, 0.0 };
}

constexpr SectionSettings lowPass (double frequency, double q)
{
    return { FilterType::lowPass, frequency, q, 0.0 };
}

/** The five bands: SUB, 40, 160, 650 and 2.5K. Upper halves of the weight maps boost strongly, lower halves cut
    slightly; the last band's shelf starts far below its name. Both belong to the sound. */
inline constexpr std::array<BandRow, numBands> bandTable { {
    { { FilterType::lowShelf, 36.06, 0.3826, 21.4092 }, { -0.0821, -0.0736, 0.0, 0.347, 1.16 }, 0.15f, 0.02f, -1.2,
        { highPass (5.0, 0.5), lowPass (120.0, 0.5) }, 2 },
    { { FilterType::peaking, 38.48, 0.2455, 15.1051 }, { -0.070057, -0.06272, 0.0, 0.34, 1.1 }, 0.12f, 0.02f, -1.3,
        { highPass (40.0, 0.4), lowPass (200.0, 0.4) }, 2 },
    { { FilterType::peaking, 154.28, 0.2196, 16.482 }, { -0.05527, -0.050211, 0.0, 0.34, 1.08 }, 0.08f, 0.015f, -1.4,
        { highPass (80.0, 0.4), lowPass (500.0, 0.4) }, 2 },
    { { FilterType::peaking, 600.57, 0.255, 15.264 }, { -0.059971, -0.053811, 0.0, 0.32, 1.05 }, 0.05f, 0.01f, -1.5,
        { highPass (300.0, 0.5), lowPass (2000.0, 0.5) }, 2 },
    { { FilterType::highShelf, 407.71, 0.4515, 19.2381 }, { -0.0555, -0.0489, 0.0, 0.315, 1.079 }, 0.03f, 0.005f, -1.5,
        { highPass (1000.0, 0.5) }, 1 },
} };

/** What every lane that is not bypassed carries at its output. */
inline constexpr SectionSettings outputFilterSettings { FilterType::peaking, 8000.0, 0.4, 0.5 };

} // namespace kestreleq::dsp
