#include "engine/dsp/Waveshaper.h"
#include "tests/support/ReferenceEngine.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kestreleq::test
{
namespace
{

double worstResidueError (std::span<const float> signal, double a, double b, double c)
{
    dsp::Waveshaper shaper (a, b, c);
    reference::Shaper direct { a, b, c };
    long double worst = 0, loudest = 0;

    for (const auto x : signal)
    {
        const auto exact = direct.residue (static_cast<long double> (x));
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

} // namespace
} // namespace kestreleq::test
