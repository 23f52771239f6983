#include "editor/chart/SpectrumDisplay.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kestreleq::test
{
namespace
{

TEST (SpectrumDisplay, RisesAtOnceAndFallsInItsTime)
{
    SpectrumDisplay display;
    double now = 1000.0;
    display.clock = [&now] { return now; };
    const auto show = [&] (std::vector<float> levels, double rate = 48000.0) {
        return display.refresh ({ std::span<const float> (levels), {} }, rate);
    };

    constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE (show ({ -10.0f, nan, -200.0f }));
    EXPECT_EQ (display.getLevels (0)[0], -10.0f);
    EXPECT_EQ (display.getLevels (0)[1], -84.0f);
    EXPECT_TRUE (display.getLevels (1).empty());

    now += 1500.0;
    EXPECT_TRUE (show ({ -58.0f, -30.0f, -200.0f }));
    EXPECT_NEAR (display.getLevels (0)[0], -46.0f, 1e-3f);
    EXPECT_EQ (display.getLevels (0)[1], -30.0f);
    now += 500.0;
    EXPECT_TRUE (show ({ -58.0f, -30.0f, -200.0f }));
    EXPECT_EQ (display.getLevels (0)[0], -58.0f);
    now += 500.0;
    EXPECT_FALSE (show ({ -58.0f, -30.0f, -200.0f })) << "what lies below the floor is not drawn";

    // Bins lie at the middles of equal parts of the axis; a rate that is none counts as 48 kHz.
    EXPECT_NEAR (display.getFrequencies()[1], 20.0 * std::pow (1200.0, 0.5), 0.01);
    show ({ -58.0f }, nan);
    EXPECT_EQ (display.getFrequencies().size(), 1u);
    EXPECT_EQ (display.getFrequencies()[0], 20.0f);
    show ({ -20.0f, -40.0f }, 8000.0);
    EXPECT_NEAR (display.getFrequencies()[1], 20.0 * std::pow (200.0, 0.75), 0.01);
    EXPECT_EQ (display.getLevels (0)[1], -40.0f);
}

} // namespace
} // namespace kestreleq::test
