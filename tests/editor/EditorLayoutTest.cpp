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

} // namespace
} // namespace kestreleq::test
