#include "editor/EditorLayout.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using Bounds = juce::Rectangle<int>;

TEST (EditorLayout, TheCanvasFillsAnyWindowAndIsCentred)
{
    const auto half = layout::placeContent (836, 429);
    EXPECT_EQ (half.scale, 0.5f);
    EXPECT_EQ (half.bounds, Bounds (0, 0, 836, 429));

    const auto wide = layout::placeContent (2000, 858);
    EXPECT_EQ (wide.scale, 1.0f);
    EXPECT_EQ (wide.bounds, Bounds (164, 0, 1672, 858));
    EXPECT_EQ (juce::Point<int> (100, 50).transformedBy (wide.transform()), juce::Point<int> (264, 50));

    EXPECT_EQ (layout::placeContent (836, 1000).bounds, Bounds (0, 285, 836, 429));
}

TEST (EditorLayout, LanesShareThePlaceOrLaneATakesIt)
{
    const auto linked = layout::placeLane (0, true);
    EXPECT_TRUE (linked.tall);
    EXPECT_EQ (linked.panel, Bounds (12, 78, 1368, 704));
    EXPECT_EQ (linked.chart, Bounds (160, 98, 1120, 537));
    EXPECT_EQ (linked.knobs[0], Bounds (328, 78 + 561, 118, 128));

    const auto b = layout::placeLane (1, true);
    EXPECT_EQ (b.panel, layout::placeLane (1, false).panel);
    EXPECT_FALSE (b.tall);

    const auto a = layout::placeLane (0, false);
    EXPECT_EQ (a.panel, Bounds (12, 78, 1368, 348));
    EXPECT_EQ (a.chart, Bounds (160, 98, 1120, 196));
    EXPECT_EQ (a.meterStrip, Bounds (1280, 98, 90, 196));
    EXPECT_EQ (a.powerButton, Bounds (44, 156, 26, 26));
    EXPECT_EQ (a.title, Bounds (74, 158, 72, 26));

    const std::array expected { 328, 450, 572, 694, 816, 962, 1084 };
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ (a.knobs[i], Bounds (expected[i], 298, 118, 128)) << i;
}

TEST (EditorLayout, NothingInTheFooterOverlapsOrLeavesIt)
{
    const auto footer = layout::placeFooter();
    EXPECT_EQ (footer.bar, Bounds (12, 800, 1648, 56));
    EXPECT_EQ (footer.inputMeters, Bounds (332, 806, 360, 44));
    EXPECT_EQ (footer.label, Bounds (1604, 819, 44, 18));

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
