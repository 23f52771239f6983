#include "editor/EditorLayout.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using Bounds = juce::Rectangle<int>;

TEST (EditorLayout, AWindowOpensAsLargeAsItWasButNoLargerThanItsDisplay)
{
    const Bounds none, laptop (0, 0, 1366, 728), wide (0, 0, 5000, 728), tiny (0, 0, 640, 400);
    EXPECT_EQ (layout::openingSize (-1, none), Bounds (836, 429));
    EXPECT_EQ (layout::openingSize (1000, none), Bounds (3344, 1716));
    EXPECT_EQ (layout::openingSize (3, laptop), layout::openingSize (3, none));

    for (int step = 0; step <= 30; ++step) // closed and opened again, it is no smaller
    {
        const auto window = layout::openingSize (step, none);
        EXPECT_EQ (layout::stepOfScale (layout::placeContent (window.getWidth(), window.getHeight()).scale), step);
    }

    for (const auto& display : { laptop, wide })
    {
        const auto window = layout::openingSize (30, display);
        EXPECT_LE (window.getWidth(), display.getWidth());
        EXPECT_LT (window.getHeight(), display.getHeight()) << "the title bar stands above it";
        EXPECT_NEAR (static_cast<double> (window.getWidth()) / window.getHeight(), 836.0 / 429.0, 0.005);
    }

    EXPECT_EQ (layout::openingSize (30, tiny), Bounds (836, 429)) << "it cannot be made smaller";
}

TEST (EditorLayout, LanesShareThePlaceOrLaneATakesIt)
{
    const auto linked = layout::placeLane (0, true);
    EXPECT_TRUE (linked.tall);
    EXPECT_TRUE (
        linked.panel.contains (layout::placeLane (0, false).panel.getUnion (layout::placeLane (1, false).panel)));

    const auto b = layout::placeLane (1, true);
    EXPECT_EQ (b.panel, layout::placeLane (1, false).panel);
    EXPECT_FALSE (b.tall);

    for (const auto& lane : { linked, layout::placeLane (0, false), b })
    {
        std::vector parts { lane.chart, lane.meterStrip, lane.powerButton, lane.title };
        parts.insert (parts.end(), lane.knobs.begin(), lane.knobs.end());

        for (std::size_t i = 0; i < parts.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE (parts[i].intersects (parts[j])) << i << " and " << j;
    }
}

TEST (EditorLayout, NothingInTheFooterOverlapsOrLeavesIt)
{
    const auto footer = layout::placeFooter();
    const std::array row { footer.oversampling, footer.latency, footer.sampleRate, footer.inputMeters,
        footer.outputMeters, footer.outputMode, footer.cpuUsage, footer.label };
    for (std::size_t i = 0; i < row.size(); ++i)
    {
        EXPECT_TRUE (footer.bar.contains (row[i])) << i;
        EXPECT_GE (row[i].getX(), i > 0 ? row[i - 1].getRight() : footer.bar.getX()) << i;
    }
}

} // namespace
} // namespace kestreleq::test
