#pragma once

#include "tests/support/ReferenceFilters.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

/** The reference's engine under one setting: two lanes with tone bank, break stage and gains. */
namespace kestreleq::test::reference
{
/** x + a x^2 + b x^3 + c x^4 with second-order antiderivative anti-aliasing; gives what it adds to its input. */
struct Shaper
{
    Real a, b, c;
    Real x1 = 0.0L, x2 = 0.0L, dPrevious = 0.0L;

    Real residue (Real x)
    {
        constexpr auto nearby = 1.0e-5L;
        const auto far1 = std::abs (x - x1) >= nearby;
        const auto d = far1 ? (second (x) - second (x1)) / (x - x1) : first (x);
        const auto y = std::abs (x - x2) >= nearby ? 2.0L * (d - dPrevious) / (x - x2)
            : far1                                 ? (first (x) - first (x1)) / (x - x1)
                                                   : x + x * x * (a + x * (b + x * c));
        dPrevious = d;
        x2 = std::exchange (x1, x);
        return y - x;
    }

    void clear() { x1 = x2 = dPrevious = 0.0L; }

    Real first (Real x) const { return x * x * (0.5L + x * (a / 3.0L + x * (b / 4.0L + x * c / 5.0L))); }

    Real second (Real x) const { return x * x * x * (1.0L / 6.0L + x * (a / 12.0L + x * (b / 20.0L + x * c / 30.0L))); }
};

/** Output weight of a band (0..4) at a parameter value 0..1. */
inline Real bandWeight (int band, double value)
{
    constexpr Real weights[5][5] {
        { -0.0821L, -0.0736L, 0.0L, 0.347L, 1.16L },
        { -0.070057L, -0.06272L, 0.0L, 0.34L, 1.1L },
        { -0.05527L, -0.050211L, 0.0L, 0.34L, 1.08L },
        { -0.059971L, -0.053811L, 0.0L, 0.32L, 1.05L },
        { -0.0555L, -0.0489L, 0.0L, 0.315L, 1.079L },
    };
    const auto position = std::clamp (value, 0.0, 1.0) * 4.0L;
    const auto i = std::min (3, static_cast<int> (position));
    return std::lerp (weights[band][i], weights[band][i + 1], position - i);
}

inline Real cubed (Real drive)
{
    const auto limited = std::clamp (drive, 0.0L, 1.0L);
    return limited * limited * limited;
}

struct Break
{
    /** Their coefficients are single precision by definition. */
    Shaper shapers[5] { { 0.15f, 0.02f, 0 }, { 0.12f, 0.02f, 0 }, { 0.08f, 0.015f, 0 }, { 0.05f, 0.01f, 0 },
        { 0.03f, 0.005f, 0 } };
    Shaper airShaper { 0.08f, 0, 0.02f };
    Section filters[5][2]; ///< the last band has only one, its second passes through
    Section airFilters[3];
    Real gateStep, gate = 0.0L;

    explicit Break (double fs)
        : gateStep (1.0L / (0.02L * fs))
    {
        constexpr Real frequencies[5][2] { { 5, 120 }, { 40, 200 }, { 80, 500 }, { 300, 2000 }, { 1000, 0 } };
        constexpr Real qs[] { 0.5L, 0.4L, 0.4L, 0.5L, 0.5L };

        for (auto i = 0; i < 5; ++i)
        {
            filters[i][0] = section ({ Shape::highPass, frequencies[i][0], qs[i] }, fs);
            filters[i][1] = i == 4 ? Section() : section ({ Shape::lowPass, frequencies[i][1], qs[i] }, fs);
        }

        airFilters[0] = section ({ Shape::highPass, 5, 0.707L }, fs);
        airFilters[1] = section ({ Shape::highShelf, 8000, 0.707L, 3 }, fs);
        airFilters[2] = section ({ Shape::lowPass, 18000, 0.707L }, fs);
    }

    Real step (const Real (&weighted)[5], const Real (&drives)[5], Real airPart, float airAmount)
    {
        constexpr Real mix[] { 0.06309573444802L, 0.05011872336273L, 0.03981071705535L, 0.03162277660168L,
            0.03162277660168L };
        Real sum = 0.0L;

        for (auto i = 0; i < 5; ++i)
            sum += mix[i] * runAll (filters[i], shapers[i].residue (cubed (drives[i]) * weighted[i]));

        gate = std::clamp (gate + (airAmount > 0.1f ? gateStep : -gateStep), 0.0L, 1.0L);

        if (gate > 0.0L)
            sum += gate * 0.02238721138568L * runAll (airFilters, airShaper.residue (cubed (airAmount) * airPart));

        return sum;
    }

    void clear()
    {
        for (auto& shaper : shapers)
            shaper.clear();

        for (auto& pair : filters)
            clearAll (pair);

        airShaper.clear();
        clearAll (airFilters);
        gate = 0.0L;
    }
};

/** What the engine is set to, as each lane hears it. */
struct Settings
{
    struct OfLane
    {
        bool bypassed = false;
        int airIndex = 2;
        float values[6] {}; ///< five bands and the air amount
        float inputGain = 0.5f, outputGain = 0.5f;
    };

    bool bypass = false, link = true, midSide = false, breaking = false;
    float trim = 0.5f;
    OfLane lanes[2];

    auto switches() const
    {
        return std::tuple (bypass, link, midSide, breaking, lanes[0].bypassed, lanes[1].bypassed, lanes[0].airIndex,
            lanes[1].airIndex);
    }

    auto values() const
    {
        std::vector<float> all { trim };

        for (const auto& lane : lanes)
        {
            all.insert (all.end(), std::begin (lane.values), std::end (lane.values));
            all.insert (all.end(), { lane.inputGain, lane.outputGain });
        }

        return all;
    }
};

struct Lane
{
    double fs;
    Section bands[5];
    Section output;
    Air air;
    Break breaker;
    Real weights[5] {};
    float airAmount = 0.0f;
    Real inputGain = 1.0L, outputGain = 1.0L;
    bool bypassed = false;

    explicit Lane (double sampleRate)
        : fs (sampleRate),
          output (section (outputFilter, fs)),
          breaker (fs)
    {
        for (auto i = 0; i < 5; ++i)
            bands[i] = section (bandFilters[i], fs);
    }

    void set (const Settings::OfLane& settings, float trim)
    {
        for (auto i = 0; i < 5; ++i)
            weights[i] = bandWeight (i, settings.values[i]);

        airAmount = settings.values[5];
        air.set (settings.airIndex, airAmount, fs);
        inputGain = stageGain (settings.inputGain, 18.0L);
        outputGain = stageGain (settings.outputGain, 18.0L) * stageGain (trim, 24.0L);
        bypassed = settings.bypassed;
    }

    Real tone (Real x, bool breaking)
    {
        Real weighted[5];
        auto sum = x;

        for (auto i = 0; i < 5; ++i)
            sum += weighted[i] = weights[i] * bands[i].step (x);

        const auto airPart = air.difference (x);
        sum += airPart;
        return breaking ? sum + breaker.step (weighted, weights, airPart, airAmount) : sum;
    }

    void clear()
    {
        clearAll (bands);
        air.section.clear();
        output.clear();
        breaker.clear();
    }
};

/** Both lanes under one setting. */
struct Engine
{
    Lane lanes[2];
    Settings settings;

    explicit Engine (double fs)
        : lanes { Lane (fs), Lane (fs) }
    {
    }

    void take (const Settings& next)
    {
        if (next.midSide != settings.midSide)
            for (auto i = 0; i < 5; ++i)
                transform (lanes[0].bands[i], lanes[1].bands[i], next.midSide);

        if (next.midSide != settings.midSide)
            transform (lanes[0].air.section, lanes[1].air.section, next.midSide);

        for (const auto k : { 0, 1 })
        {
            // A bypassed lane has no memory.
            if (next.bypass < settings.bypass || next.lanes[k].bypassed || lanes[k].bypassed)
                lanes[k].clear();

            if (next.breaking < settings.breaking)
                lanes[k].breaker.clear();

            lanes[k].set (next.lanes[k], next.trim);
        }

        settings = next;
    }

    static void transform (Section& a, Section& b, bool encode)
    {
        const auto half = encode ? 0.5L : 1.0L;
        std::tie (a.s1, b.s1) = std::pair ((a.s1 + b.s1) * half, (a.s1 - b.s1) * half);
        std::tie (a.s2, b.s2) = std::pair ((a.s2 + b.s2) * half, (a.s2 - b.s2) * half);
    }

    std::pair<Real, Real> step (Real left, Real right)
    {
        if (settings.bypass)
            return { left, right };

        Real x[] { left, right };

        if (settings.midSide)
            std::tie (x[0], x[1]) = std::pair ((x[0] + x[1]) * 0.5L, (x[0] - x[1]) * 0.5L);

        for (const auto k : { 0, 1 })
            if (! lanes[k].bypassed)
                x[k] = lanes[k].tone (x[k] * lanes[k].inputGain, settings.breaking);

        if (settings.midSide)
            std::tie (x[0], x[1]) = std::pair (x[0] + x[1], x[0] - x[1]);

        for (const auto k : { 0, 1 })
            if (! lanes[k].bypassed)
                x[k] = lanes[k].output.step (x[k]) * lanes[k].outputGain;

        return { x[0], x[1] };
    }
};

struct Rider
{
    double fs;
    Real gainDb = 0.0L;
    Real line = 1.0L; ///< where the applied gain is, or where its way to 0 dB began
    int falling = 0;  ///< samples left of that way

    int wayLength() const { return static_cast<int> (std::lround (0.005 * fs)); }

    void run (double* left, double* right, int n, bool active)
    {
        if (falling == 0 && active)
            return ride (left, right, n);

        if (falling == 0 && line != 1.0L)
            falling = wayLength();

        gainDb = 0.0L;

        for (auto i = 0; i < n && falling > 0; ++i)
        {
            --falling;
            apply (1.0L - (1.0L - line) * falling / wayLength(), left[i], right[i]);
        }

        if (falling == 0)
            line = 1.0L;
    }

    void ride (double* left, double* right, int n)
    {
        Real sum = 0.0L;
        auto counted = 0;

        for (const auto* channel : { left, right })
            for (auto i = 0; i < n; ++i)
                if (std::isfinite (channel[i]))
                {
                    sum += static_cast<Real> (channel[i]) * channel[i];
                    ++counted;
                }

        const auto level = sum > 0.0L ? 10.0L * std::log10 (sum / counted) : -100.0L;

        if (level > -80.0L)
        {
            const auto desired = std::clamp (-18.0L - level, -80.0L, 24.0L);
            const auto reach = 6.0L * n / fs;
            gainDb = std::clamp (desired, gainDb - reach, gainDb + reach);
        }

        const auto from = std::exchange (line, fromDb (gainDb));

        for (auto i = 0; i < n; ++i)
            apply (from + (line - from) * (i + 1) / n, left[i], right[i]);
    }

    /** The gain and its products are single precision by definition. */
    static void apply (Real gain, double& left, double& right)
    {
        for (auto* sample : { &left, &right })
        {
            const auto product = static_cast<float> (*sample) * static_cast<float> (gain);
            *sample = static_cast<double> (std::isfinite (product) ? product : 0.0f);
        }
    }
};
} // namespace kestreleq::test::reference
