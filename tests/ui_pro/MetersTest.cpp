#include "tests/support/Pictures.h"
#include "tests/support/RepaintWatch.h"

#include "ui_pro/controls/meters/MeterPair.h"
#include "ui_pro/controls/meters/MeterStrip.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;

constexpr juce::uint32 own = 0xff444b4d;
constexpr juce::uint32 yellow = 0xffffc857;
constexpr juce::uint32 red = 0xffff4d4f;
constexpr juce::uint32 unlit = 0xff0c1014;

float linear (float db)
{
    return std::pow (10.0f, db / 20.0f);
}

TEST (MeterStrip, RisesAtOnceAndFallsAt36DbPerSecond)
{
    MeterStrip strip;
    double now = 5000.0;
    strip.clock = [&now] { return now; };

    strip.setLevels (1.0f, linear (-40.0f));
    EXPECT_EQ (strip.getLevelDbL(), 0.0f);

    for (int i = 0; i < 20; ++i)
    {
        now += 50.0;
        strip.setLevels (0.0f, linear (-40.0f));
    }

    EXPECT_NEAR (strip.getLevelDbL(), -36.0f, 1e-3f);
    EXPECT_NEAR (strip.getLevelDbR(), -40.0f, 1e-3f) << "not below its target";

    now -= 1000.0;
    strip.setLevels (0.0f, 0.0f);
    EXPECT_NEAR (strip.getLevelDbL(), -36.0f, 1e-3f) << "a clock that steps back";

    now += 334.0;
    strip.setLevels (0.0f, 0.0f);
    EXPECT_EQ (strip.getLevelDbL(), -48.0f);
}

TEST (MeterStrip, LightsSegmentsInTheColoursOfTheirLevels)
{
    MeterStrip strip;
    strip.setSize (90, 196);
    strip.setLevels (10.0f, linear (3.0f));
    const auto picture = paintPicture (strip);
    SegmentedBar bar (32, 4.0f, SegmentedBar::Growth::up);

    for (const auto& [x, numLit] : { std::pair { 5.0f, 32 }, { 33.0f, 27 } })
    {
        bar.setBounds ({ x, 20.0f, 24.0f, 154.0f });

        for (int i = 0; i < bar.size(); ++i)
        {
            const auto segment = bar.getSegment (i);
            const auto at =
                juce::Point<float> (segment.getCentreX(), segment.getBottom() - 1.0f).toInt(); // no highlight
            EXPECT_EQ (picture.getPixelAt (at.x, at.y).getARGB(),
                i >= numLit   ? unlit
                    : i >= 28 ? red
                    : i >= 25 ? yellow
                              : own)
                << i << " at " << x;
        }
    }
}

/** The unlit segments of one bar over the whole component. */
struct BarOnly final : juce::Component
{
    void paint (juce::Graphics& g) override
    {
        bar.setBounds (getLocalBounds().toFloat());
        bar.paintUnlit (g, quillon::ui_pro::primitives::PixelGrid::of (g, *this));
    }

    SegmentedBar bar { 32, 4.0f, SegmentedBar::Growth::down };
};

TEST (SegmentedBar, DrawsEverySegmentWithinHalfAPixelOfItsPlace)
{
    BarOnly shown;

    for (const auto height : { 154, 171, 495, 600 })
    {
        shown.setSize (20, height);
        const auto pitch = static_cast<float> (height) / 32.0f;

        for (const auto scale : { 1.0f, 1.5f, 2.0f })
        {
            const auto picture = paintPicture (shown, scale);
            const auto lit = [&] (int y)
            { return y >= 0 && y < picture.getHeight() && picture.getPixelAt (12, y).getAlpha() > 127; };
            int segment = 0;

            for (int y = 0; y <= picture.getHeight(); ++y)
            {
                const auto place = static_cast<float> (segment) * pitch * scale;

                if (lit (y) && ! lit (y - 1))
                {
                    EXPECT_NEAR (static_cast<float> (y), place, 0.51f) << height << " at " << scale;
                }

                if (! lit (y) && lit (y - 1))
                {
                    EXPECT_NEAR (static_cast<float> (y), place + (pitch - 1.0f) * scale, 0.51f);
                    ++segment;
                }
            }

            EXPECT_EQ (segment, 32);
        }
    }
}

TEST (MeterStrip, MarksCanBeReadAtHalfSize)
{
    MeterStrip strip;
    strip.setSize (90, 196);
    const auto picture = paintPicture (strip, 0.5f);
    const auto mark = (MeterStripLayout::of (strip.getLocalBounds(), false).getMark (-24.0f) * 0.5f).toNearestInt();
    auto rows = 0;

    for (auto y = mark.getY() - 2; y < mark.getBottom() + 2; ++y)
    {
        auto brightest = 0;
        for (auto x = mark.getX() + 4; x < mark.getRight(); ++x) // right of the bars
            brightest = std::max<int> (brightest, picture.getPixelAt (x, y).getAlpha());
        rows += brightest > 60;
    }

    EXPECT_GE (rows, 5) << "digits of 7.5 pixels' type";
}

TEST (MeterStrip, RepaintsOnlyWhatChanges)
{
    MeterStrip strip;
    strip.setSize (90, 196);
    strip.clock = [] { return 1.0; };
    strip.setLevels (linear (-12.0f), 0.0f);
    const auto before = paintPicture (strip);
    strip.setLabels ("MID", "SIDE");
    EXPECT_GT (countDifferentPixels (before, paintPicture (strip), 16), 20);

    RepaintWatch watch (strip);
    strip.setLevels (linear (-11.9f), 0.0f); // the same segments
    strip.setLabels ("MID", "SIDE");
    EXPECT_EQ (watch.takeCount(), 0);
    strip.setLevels (linear (-10.0f), 0.0f); // one more
    EXPECT_LE (watch.takeArea().getHeight(), 5);
    strip.setGainReduction (6.0f); // a new bar moves the others
    EXPECT_EQ (watch.takeArea(), strip.getLocalBounds());
    watch.takeCount();
    for (int step = 1; step <= 9; ++step)
        strip.setGainReduction (6.0f + 0.005f * static_cast<float> (step));
    EXPECT_EQ (watch.takeCount(), 0);
    EXPECT_EQ (strip.getGainReductionDb(), 6.0f + 0.005f * 9.0f) << "small steps add up";
}

TEST (MeterPair, FallsAt36DbPerSecond)
{
    MeterPair pair ("OUT L", "OUT R");
    pair.setSize (360, 44);
    auto now = 1.0;
    pair.clock = [&now] { return now; };
    pair.setLevels (1.0f, linear (-12.34f));
    EXPECT_EQ (pair.getReadout (1), "-12.3");

    for (int i = 0; i < 2; ++i)
    {
        now += 250.0;
        pair.setLevels (0.0f, 0.0f);
    }

    EXPECT_NEAR (pair.getMeter (0).getLevelDb(), -18.0f, 0.01f);
}

} // namespace
} // namespace kestreleq::test
