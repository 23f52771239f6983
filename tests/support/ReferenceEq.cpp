#include "tests/support/ReferenceEq.h"
#include "tests/support/ReferenceFilters.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace kestreleq::test
{
namespace
{
using namespace reference;

/** x + a x^2 + b x^3 + c x^4 with second-order antiderivative anti-aliasing; gives what it adds to its input. */
struct Shaper
{
    float a, b, c;
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

Real cubed (Real drive)
{
    const auto limited = std::clamp (drive, 0.0L, 1.0L);
    return limited * limited * limited;
}

struct Break
{
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

    void set (const ReferenceParameters& parameters, int lane)
    {
        for (auto i = 0; i < 5; ++i)
            weights[i] = bandWeight (i, parameters.laneValue (lane, i));

        airAmount = parameters.laneValue (lane, 5);
        air.set (airIndexOf (parameters.laneValue (lane, 6)), airAmount, fs);
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

struct Rider
{
    double fs;
    Real gainDb = 0.0L;

    void run (double* left, double* right, int n)
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
            const auto reach = 6.0L * n / (fs >= 8000.0 ? fs : 48000.0);
            gainDb = std::clamp (desired, gainDb - reach, gainDb + reach);
        }

        // This gain and its products are single precision by definition.
        const auto linear = static_cast<float> (fromDb (gainDb));

        for (auto* channel : { left, right })
            for (auto i = 0; i < n; ++i)
            {
                const auto product = static_cast<float> (channel[i]) * linear;
                channel[i] = static_cast<double> (std::isfinite (product) ? product : 0.0f);
            }
    }
};
} // namespace

struct ReferenceEq::State
{
    explicit State (double fs)
        : lanes { Lane (fs), Lane (fs) },
          inputRider { fs },
          outputRider { fs }
    {
    }

    void take (const ReferenceParameters& p);
    void runEngine (double* left, double* right, int n);

    Lane lanes[2];
    Rider inputRider, outputRider;
    Real trim = 1.0L;
    bool bypass = false, breaking = false, midSide = false, resetPending = false;
};

void ReferenceEq::State::take (const ReferenceParameters& p)
{
    const auto link = p.isOn ("link");
    resetPending = resetPending || (bypass && ! p.isOn ("bypass"));
    bypass = p.isOn ("bypass");
    midSide = p.isOn ("msMode") && ! link;

    lanes[0].bypassed = p.isOn ("laneABypass");
    lanes[1].bypassed = link ? lanes[0].bypassed : p.isOn ("laneBBypass");
    trim = stageGain (p.get ("trim"), 24.0L);

    for (const auto lane : { 0, 1 })
    {
        const auto gain = [&] (const char* linkId, const char* first, const char* own)
        { return stageGain (p.get (lane == 0 || link || p.isOn (linkId) ? first : own), 18.0L); };

        // While a rider sets the level, the stage keeps the gain that it last had.
        if (! p.isOn ("inAutoGain"))
            lanes[lane].inputGain = gain ("inGainLink", "inGain1", "inGain2");

        if (! p.isOn ("outAutoGain"))
            lanes[lane].outputGain = gain ("outGainLink", "outGain1", "outGain2");

        if (breaking && ! p.isOn ("breakMode"))
            lanes[lane].breaker.clear();

        lanes[lane].set (p, lane);
    }

    breaking = p.isOn ("breakMode");
}

void ReferenceEq::State::runEngine (double* left, double* right, int n)
{
    if (bypass)
        return;

    if (std::exchange (resetPending, false))
        for (auto& lane : lanes)
            lane.clear();

    for (auto i = 0; i < n; ++i)
    {
        Real x[] { left[i], right[i] };

        if (midSide)
            std::tie (x[0], x[1]) = std::pair ((x[0] + x[1]) * 0.5L, (x[0] - x[1]) * 0.5L);

        for (const auto k : { 0, 1 })
            if (! lanes[k].bypassed)
                x[k] = lanes[k].tone (x[k] * lanes[k].inputGain, breaking);

        if (midSide)
            std::tie (x[0], x[1]) = std::pair (x[0] + x[1], x[0] - x[1]);

        for (const auto k : { 0, 1 })
            if (! lanes[k].bypassed)
                x[k] = lanes[k].output.step (x[k]) * lanes[k].outputGain * trim;

        left[i] = static_cast<double> (x[0]);
        right[i] = static_cast<double> (x[1]);
    }
}

ReferenceEq::ReferenceEq (double sampleRate)
    : state (std::make_unique<State> (sampleRate))
{
}

ReferenceEq::~ReferenceEq() = default;

void ReferenceEq::process (const ReferenceParameters& parameters, double* left, double* right, int n)
{
    if (n < 1)
        return;

    state->take (parameters);
    const auto ridersRest = state->bypass || state->lanes[0].bypassed || state->lanes[1].bypassed;
    const auto ride = [&] (Rider& rider, bool active)
    {
        if (active && ! ridersRest)
            rider.run (left, right, n);
        else
            rider.gainDb = 0.0L;
    };

    ride (state->inputRider, parameters.isOn ("inAutoGain"));
    state->runEngine (left, right, n);
    ride (state->outputRider, parameters.isOn ("outAutoGain"));
}

long double bandWeight (int band, double value)
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

Complex bandResponse (int band, double frequency, double sampleRate)
{
    return response (withCeiling (bandFilters[band], sampleRate), frequency, sampleRate);
}

Complex airResponse (float amount, float airBand, double frequency, double sampleRate)
{
    const auto index = airIndexOf (airBand);

    if (index == 0 || amount <= 0.0f)
        return 1.0L;

    return fromDb (airRow (index, amount).preGainDb) *
        response (airFilter (index, amount, sampleRate), frequency, sampleRate);
}

double expectedMagnitude (const ReferenceParameters& parameters, int lane, double frequency, double sampleRate)
{
    const auto value = [&] (int control) { return parameters.laneValue (lane, control); };
    auto sum = airResponse (value (5), value (6), frequency, sampleRate);

    for (auto band = 0; band < 5; ++band)
        sum += bandWeight (band, value (band)) * bandResponse (band, frequency, sampleRate);

    return static_cast<double> (
        std::abs (sum * response (withCeiling (outputFilter, sampleRate), frequency, sampleRate)));
}
} // namespace kestreleq::test
