#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

/** The reference's filters: analogue prototypes, the bilinear map and the plain recursion, in long double. */
namespace kestreleq::test::reference
{
using Real = long double;
inline constexpr auto pi = std::numbers::pi_v<Real>;

inline Real fromDb (Real decibels)
{
    return std::pow (10.0L, decibels / 20.0L);
}

inline Real stageGain (float value, Real rangeDb)
{
    return fromDb ((value - 0.5L) * rangeDb);
}

// clang-format off
enum class Shape { lowPass, highPass, peaking, lowShelf, highShelf };

// clang-format on
struct Filter
{
    Shape shape;
    Real frequency, q, gainDb = 0.0L;
};

inline constexpr Filter bandFilters[] { { Shape::lowShelf, 36.06L, 0.3826L, 21.4092L },
    { Shape::peaking, 38.48L, 0.2455L, 15.1051L }, { Shape::peaking, 154.28L, 0.2196L, 16.482L },
    { Shape::peaking, 600.57L, 0.255L, 15.264L }, { Shape::highShelf, 407.71L, 0.4515L, 19.2381L } };

inline constexpr Filter outputFilter { Shape::peaking, 8000.0L, 0.4L, 0.5L };

/** Every section but the air's has this deliberately low frequency ceiling. */
inline Filter withCeiling (Filter filter, double fs)
{
    filter.frequency = std::clamp (filter.frequency, 1.0L, std::min (20000.0L, fs * 0.45L * 0.5L));
    return filter;
}

/** n[2] s^2 + n[1] s + n[0] over the same of d. */
struct Prototype
{
    Real n[3], d[3];
};

/** Audio EQ Cookbook (R. Bristow-Johnson), the analogue transfer functions at the frequency 1. */
inline Prototype prototype (const Filter& filter)
{
    const auto A = std::pow (10.0L, filter.gainDb / 40.0L);
    const auto p = 1.0L / filter.q;
    const auto r = std::sqrt (A) * p;

    // clang-format off
    switch (filter.shape)
    {
        case Shape::lowPass: return { { 1, 0, 0 }, { 1, p, 1 } };
        case Shape::highPass: return { { 0, 0, 1 }, { 1, p, 1 } };
        case Shape::peaking: return { { 1, A * p, 1 }, { 1, p / A, 1 } };
        case Shape::lowShelf: return { { A * A, A * r, A }, { 1, r, A } };
        case Shape::highShelf: return { { A, A * r, A * A }, { A, r, 1 } };
    }
    // clang-format on
    return { { 1, 0, 0 }, { 1, 0, 0 } };
}

struct Coefficients
{
    Real b0 = 1, b1 = 0, b2 = 0, a1 = 0, a2 = 0;
};

inline Coefficients designed (const Filter& filter, double fs)
{
    const auto [n, d] = prototype (filter);
    const auto k = std::tan (pi * filter.frequency / fs);
    const auto a0 = d[2] + k * (d[1] + k * d[0]);
    return { (n[2] + k * (n[1] + k * n[0])) / a0, 2 * (k * k * n[0] - n[2]) / a0, (n[2] - k * (n[1] - k * n[0])) / a0,
        2 * (k * k * d[0] - d[2]) / a0, (d[2] - k * (d[1] - k * d[0])) / a0 };
}

/** Rounded to single precision, unless that moves a pole onto or outside the unit circle. */
inline Coefficients rounded (const Coefficients& exact)
{
    const auto round = [] (Real value) { return static_cast<Real> (static_cast<float> (value)); };
    const Coefficients r { round (exact.b0), round (exact.b1), round (exact.b2), round (exact.a1), round (exact.a2) };
    const auto stable = std::abs (r.a2) < 1 && 1 + r.a1 + r.a2 > 0 && 1 - r.a1 + r.a2 > 0;
    return stable ? r : exact;
}

struct Section
{
    Coefficients k;
    Real s1 = 0.0L, s2 = 0.0L;

    void clear() { s1 = s2 = 0.0L; }

    Real step (Real x)
    {
        const auto y = k.b0 * x + s1;
        auto next1 = k.b1 * x - k.a1 * y + s2;
        auto next2 = k.b2 * x - k.a2 * y;

        if (! std::isfinite (x + s1 + s2 + y + next1 + next2))
        {
            clear();
            return 0.0L;
        }

        if (x != 0.0L || next1 != 0.0L || next2 != 0.0L)
            next2 += 1.0e-25L; // keeps the decay out of the denormal range

        s1 = next1;
        s2 = next2;
        return y;
    }
};

inline Section section (const Filter& filter, double fs)
{
    return { rounded (designed (withCeiling (filter, fs), fs)) };
}

inline Real runAll (std::span<Section> sections, Real x)
{
    for (auto& section : sections)
        x = section.step (x);

    return x;
}

inline void clearAll (std::span<Section> sections)
{
    std::for_each (sections.begin(), sections.end(), [] (auto& s) { s.clear(); });
}

struct AirRow
{
    Real preGainDb, shapeA, frequency, shapeB;
};

/** Rows at the amounts 0, 0.25, 0.5 and 1, for the indices 1 to 4; index 0 has no air. */
// clang-format off
inline constexpr AirRow airTable[4][4] {
    { { 0, 0.85, 11359, 0.85 }, { -0.25, 1.67, 11359, 1.62 }, { 0.26, 4.33, 11359, 3.45 }, { 4.75, 15.89, 11359, 13.4 } },
    { { 0, 0.85, 22518, 0.85 }, { 0.04, 1.15, 22518, 1.23 }, { 0.45, 3.4, 22518, 4.5 }, { 5.51, 14.16, 22518, 14.71 } },
    { { 0, 0.8, 25960, 0.8 }, { -0.12, 1.12, 25960, 0.98 }, { 0.46, 3.25, 25960, 2.58 }, { 5.84, 13.07, 25960, 12.22 } },
    { { 0, 0.7, 29696, 0.7 }, { -0.25, 1.28, 29696, 3.2 }, { 0.28, 2.48, 29696, 0.86 }, { 5.51, 10.29, 29696, 11.18 } },
};

// clang-format on
inline int airIndexOf (float value)
{
    return static_cast<int> (std::round (value * 4.0f));
}

inline AirRow airRow (int index, Real amount)
{
    constexpr Real amounts[] { 0.0L, 0.25L, 0.5L, 1.0L };
    const auto i = amount < 0.25L ? 0 : amount < 0.5L ? 1 : 2;
    const auto t = std::min (1.0L, (amount - amounts[i]) / (amounts[i + 1] - amounts[i]));
    const auto &a = airTable[index - 1][i], &b = airTable[index - 1][i + 1];
    return { std::lerp (a.preGainDb, b.preGainDb, t), std::lerp (a.shapeA, b.shapeA, t), a.frequency,
        std::lerp (a.shapeB, b.shapeB, t) };
}

/** The peak grows from flat with shape A; shape B narrows it, and the tangent ratio keeps its lower skirt the same at
    every sample rate. */
inline Filter airFilter (int index, Real amount, double fs)
{
    const auto row = airRow (index, amount);
    const auto frequency = std::min (row.frequency, 0.9L * fs / 2.0L);
    const auto uncramped = pi * row.frequency / fs / std::tan (pi * frequency / fs);
    const auto q = std::clamp (uncramped / std::sqrt (row.shapeB), 0.01L, 100.0L);
    return { Shape::peaking, frequency, q, row.shapeA - airTable[index - 1][0].shapeA };
}

struct Air
{
    bool active = false;
    Real preGain = 1.0L;
    Section section;

    void set (int index, Real amount, double fs)
    {
        active = index > 0 && amount > 0.0L;

        if (! active)
            return section.clear();

        preGain = fromDb (airRow (index, amount).preGainDb);
        section.k = designed (airFilter (index, amount, fs), fs);
    }

    /** What the air adds: the filtered sample minus the sample. */
    Real difference (Real x)
    {
        const auto y = x * preGain;
        return ! active ? 0.0L : (std::isfinite (y) ? section.step (y) : y) - x;
    }
};

} // namespace kestreleq::test::reference
