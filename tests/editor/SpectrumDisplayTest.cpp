#include "editor/chart/SpectrumDisplay.h"
#include "editor/chart/LaneAxes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kestreleq::test
{
namespace
{

TEST (LaneAxes, LeaveTheLabelsTheirMarginsAndStopAtTheirEnds)
{
    const auto axes = makeLaneAxes (1120, 196);
    EXPECT_EQ (axes.plot.getWidth(), 1089.0f);
    EXPECT_EQ (axes.plot.getHeight(), 177.0f);
    EXPECT_EQ (axes.xFor (1.0), axes.plot.getX());
    EXPECT_EQ (axes.xFor (1e6), axes.plot.getRight());
    EXPECT_NEAR (axes.xFor (std::sqrt (20.0 * 40000.0)), axes.plot.getCentreX(), 0.01f);
    EXPECT_NEAR (axes.frequencyAt (axes.xFor (1234.0)), 1234.0, 0.1);
    EXPECT_EQ (axes.yFor (30.0), axes.plot.getY());
    EXPECT_EQ (axes.yFor (-18.0), axes.plot.getBottom());
    EXPECT_NEAR (axes.yFor (9.0), axes.plot.getY() + axes.plot.getHeight() * 0.25f, 0.01f);
    EXPECT_TRUE (makeLaneAxes (5, 5).plot.isEmpty());
}

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
