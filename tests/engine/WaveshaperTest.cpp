#include "engine/dsp/Waveshaper.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kestreleq::test
{
namespace
{

/** The definition, term by term in extended precision. */
struct DirectShaper
{
    using Real = long double;

    Real f (Real x) const { return x + a * x * x + b * x * x * x + c * std::pow (x, Real (4)); }

    Real f1 (Real x) const
    {
        return x * x / 2 + a * std::pow (x, Real (3)) / 3 + b * std::pow (x, Real (4)) / 4 +
            c * std::pow (x, Real (5)) / 5;
    }

    Real f2 (Real x) const
    {
        return std::pow (x, Real (3)) / 6 + a * std::pow (x, Real (4)) / 12 + b * std::pow (x, Real (5)) / 20 +
            c * std::pow (x, Real (6)) / 30;
    }

    Real process (Real x)
    {
        const auto near = [] (Real p, Real q) { return std::abs (p - q) < Real (1e-5); };
        const auto d1 = near (x, x1) ? f1 (x) : (f2 (x) - f2 (x1)) / (x - x1);
        const auto y = ! near (x, x2) ? 2 * (d1 - previous) / (x - x2)
            : ! near (x, x1)          ? (f1 (x) - f1 (x1)) / (x - x1)
                                      : f (x);
        previous = d1;
        x2 = x1;
        x1 = x;
        return y;
    }

    Real a, b, c;
    Real x1 = 0, x2 = 0, previous = 0;
};

double worstResidueError (std::span<const float> signal, double a, double b, double c)
{
    dsp::Waveshaper shaper (a, b, c);
    DirectShaper direct { a, b, c };
    long double worst = 0, loudest = 0;

    for (const auto x : signal)
    {
        const auto exact = direct.process (static_cast<long double> (x)) - static_cast<long double> (x);
        const auto actual = shaper.process (static_cast<double> (x)) - static_cast<double> (x);
        worst = std::max (worst, std::abs (exact - static_cast<long double> (actual)));
        loudest = std::max (loudest, std::abs (exact));
    }

    return static_cast<double> (20 * std::log10 (worst / loudest));
}

TEST (Waveshaper, MatchesItsDefinition)
{
    for (const auto& [a, b, c] :
        std::array<std::array<double, 3>, 3> { { { 0.15, 0.02, 0.0 }, { 0.03, 0.005, 0.0 }, { 0.08, 0.0, 0.02 } } })
    {
        EXPECT_LT (worstResidueError (whiteNoise (7, 20000), a, b, c), -120.0);
        EXPECT_LT (worstResidueError (sine (50.0, 48000.0, 20000, 2.0), a, b, c), -100.0);
    }

    // Steps of just less and just more than the smallest, and none at all.
    std::vector<float> crawl;
    for (int i = 0; i < 3000; ++i)
        crawl.push_back (0.5f + static_cast<float> (i % 7) * 4e-6f + (i / 1000 == 1 ? 0.1f : 0.0f));

    EXPECT_LT (worstResidueError (crawl, 0.15, 0.02, 0.0), -80.0);
}

TEST (Waveshaper, SettlesOnTheCurveAndForgetsOnReset)
{
    dsp::Waveshaper shaper (0.15, 0.02, 0.0);

    for (int i = 0; i < 4; ++i)
        shaper.process (0.7);

    EXPECT_DOUBLE_EQ (shaper.process (0.7), 0.7 + 0.15 * 0.49 + 0.02 * 0.343);

    dsp::Waveshaper fresh (0.15, 0.02, 0.0);
    shaper.reset();
    for (const auto x : whiteNoise (3, 100))
        EXPECT_EQ (shaper.process (static_cast<double> (x)), fresh.process (static_cast<double> (x)));
}

} // namespace
} // namespace kestreleq::test
