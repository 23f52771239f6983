#include "tests/support/Pictures.h"
#include "tests/support/RepaintWatch.h"

#include "ui_pro/controls/chart/SpectrumChartComponent.h"
#include "ui_pro/controls/chart/SpectrumChartFrame.h"
#include "ui_pro/controls/chart/SpectrumPainter.h"

#include <gtest/gtest.h>

#include <array>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;

SpectrumChartSnapshot flat (float db, std::uint64_t bins = 64)
{
    return { true, 48000.0, bins, 0, [db] (std::uint64_t) { return db; } };
}

TEST (SpectrumChart, RepaintsForANewPictureOnly)
{
    SpectrumChartComponent chart;
    chart.setSize (200, 100);
    RepaintWatch watch (chart);

    chart.setSnapshot (flat (-84.0f));
    chart.setSnapshot ({});
    EXPECT_EQ (watch.takeCount(), 0) << "it waits for audio all the time";

    chart.setSnapshot (flat (-20.0f));
    EXPECT_EQ (watch.takeCount(), 1);
    chart.setSnapshot (flat (-20.0f));
    EXPECT_EQ (watch.takeCount(), 0);
}

/** Nothing but the lines of a grid, in opaque white. */
struct LinesOnly final : juce::Component
{
    void paint (juce::Graphics& g) override
    {
        grid.axes.plot = getLocalBounds().toFloat().reduced (10.3f);
        paintGridLines (g, grid, quillon::ui_pro::primitives::PixelGrid::of (g, *this));
    }

    static constexpr std::array levels { 6, 0, -6 };
    static constexpr std::array frequencies { 20.0, 1000.0, 20000.0 };
    ChartGrid grid { .axes = { .lowestDb = -18.0, .highestDb = 18.0 },
        .frequencies = frequencies,
        .levels = levels,
        .zeroLine = juce::Colours::white,
        .levelLine = juce::Colours::white,
        .frequencyLine = juce::Colours::white };
};

TEST (ChartGrid, LinesLieOnWholePixelsAtEveryScale)
{
    juce::Component window;
    window.setSize (220, 120);
    LinesOnly chart;
    chart.setBounds (7, 5, 201, 101);
    window.addAndMakeVisible (chart);

    for (const auto scale : { 0.5f, 0.75f, 1.0f, 1.25f, 1.6f, 2.0f })
    {
        const auto picture = paintPicture (window, scale);
        const auto count = [] (int length, auto&& pixelAt)
        {
            std::array<int, 2> lit {}; // wholly, and in part

            for (int i = 0; i < length; ++i)
                if (const auto alpha = pixelAt (i).getAlpha(); alpha > 1)
                    ++lit[alpha < 254];

            return lit;
        };
        const auto expected = 3 * std::max (juce::roundToInt (scale), 1);
        const auto x = juce::roundToInt (60.0f * scale), y = juce::roundToInt (29.0f * scale);
        EXPECT_EQ (count (picture.getHeight(), [&] (int i) { return picture.getPixelAt (x, i); }),
            (std::array { expected, 0 }))
            << scale;
        EXPECT_EQ (
            count (picture.getWidth(), [&] (int i) { return picture.getPixelAt (i, y); }), (std::array { expected, 0 }))
            << scale;
    }
}

TEST (ChartGrid, LabelsCanBeReadNeverTouchAndKeepZeroFirst)
{
    for (const auto scale : { 0.5f, 1.0f, 2.0f })
    {
        const quillon::ui_pro::primitives::PixelGrid pixels { scale, {} };

        for (const auto size : { juce::Point<float> { 788.0f, 196.0f }, { 320.0f, 60.0f }, { 150.0f, 45.0f } })
        {
            const juce::Rectangle<float> area (size.x, size.y);

            for (const bool spectrum : { true, false })
            {
                const auto labels = placeGridLabels (makeSpectrumGrid (area, { .spectrumScale = spectrum }), pixels);
                EXPECT_TRUE (
                    std::any_of (labels.begin(), labels.end(), [] (const auto& label) { return label.text == "0"; }));

                juce::Image picture (juce::Image::ARGB, 1600, 400, true, juce::SoftwareImageType());
                {
                    juce::Graphics g (picture);
                    g.addTransform (juce::AffineTransform::scale (scale));
                    paintWaitingForAudio (g, area, { .spectrumScale = spectrum });
                }

                for (const auto& label : labels)
                {
                    EXPECT_GE (label.box.getHeight() * scale, 7.5f);
                    EXPECT_TRUE (area.contains (label.box)) << label.text;
                    for (const auto& other : labels)
                        EXPECT_TRUE (&label == &other || ! label.box.intersects (other.box));

                    const auto box = (label.box * scale).getSmallestIntegerContainer();
                    EXPECT_EQ (countDifferentPixels (picture.getClippedImage (box),
                                   juce::Image (juce::Image::ARGB, box.getWidth(), box.getHeight(), true), 8),
                        0)
                        << label.text << " at " << scale;
                }
            }
        }
    }
}

TEST (SpectrumPainter, KeepsTheHighestOfWhatStandsTooClose)
{
    const ChartAxes axes { .plot = { 0.0f, 0.0f, 300.0f, 108.0f } };
    const std::array<float, 6> frequencies { 20.0f, 201.0f, 205.0f, 2000.0f, 21000.0f, 30000.0f };
    const std::array<float, 6> levels { -84.0f, -6.0f, -60.0f, 24.0f, -50.0f, -20.0f };
    const auto points = makeSpectrumPoints (axes, frequencies, levels, 2.0f);
    ASSERT_EQ (points.size(), 4u);
    EXPECT_NEAR (points[1].x, axes.xFor (201.0), 1e-3f);
    EXPECT_NEAR (points[1].y, 30.0f, 1e-3f);
    EXPECT_NEAR (points[3].y, 44.0f, 1e-3f) << "beyond the end it stands at the end";
    EXPECT_EQ (points[3].x, 300.0f);
}

} // namespace
} // namespace kestreleq::test
