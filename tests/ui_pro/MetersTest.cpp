#include "tests/support/Pictures.h"
#include "tests/support/RepaintWatch.h"

#include "ui_pro/controls/meters/MeterPair.h"
#include "ui_pro/controls/meters/MeterScale.h"
#include "ui_pro/controls/meters/MeterStrip.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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

/** The colours of segments from the bar's start, each taken beside its highlight. */
std::vector<juce::uint32> segmentColours (const juce::Image& picture, const SegmentedBar& bar, bool fromLeft)
{
    std::vector<juce::uint32> colours;

    for (int i = 0; i < bar.size(); ++i)
    {
        const auto segment = bar.getSegment (i);
        const auto at = fromLeft ? juce::Point<float> (segment.getX() + 1.0f, segment.getCentreY())
                                 : juce::Point<float> (segment.getCentreX(), segment.getBottom() - 1.0f);
        colours.push_back (picture.getPixelAt (static_cast<int> (at.x), static_cast<int> (at.y)).getARGB());
    }

    return colours;
}

std::vector<juce::uint32> expectedColours (int total, int lit, int firstYellow, int firstRed, juce::uint32 base)
{
    std::vector<juce::uint32> colours;

    for (int i = 0; i < total; ++i)
        colours.push_back (i >= lit ? unlit : i >= firstRed ? red : i >= firstYellow ? yellow : base);

    return colours;
}

TEST (MeterScale, ClampsAndTreatsNonsenseAsSilence)
{
    for (const auto silence : { 0.0f, 1e-6f, -1.0f, std::numeric_limits<float>::quiet_NaN() })
        EXPECT_EQ (toDb (silence), -48.0f);

    EXPECT_EQ (toDb (10.0f), 12.0f);
    EXPECT_NEAR (toDb (0.5f), -6.0206f, 1e-3f);
    EXPECT_EQ (meterReadout (-47.95f), "-");
    EXPECT_EQ (meterReadout (-12.34f), "-12.3");
    EXPECT_EQ (meterReadout (-0.04f), "0.0");
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
    bar.setBounds ({ 5.0f, 20.0f, 24.0f, 154.0f });
    EXPECT_EQ (segmentColours (picture, bar, false), expectedColours (32, 32, 25, 28, own));
    bar.setBounds ({ 33.0f, 20.0f, 24.0f, 154.0f });
    EXPECT_EQ (segmentColours (picture, bar, false), expectedColours (32, 27, 25, 28, own));
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
    RepaintWatch watch (strip);

    strip.setLevels (linear (-11.9f), 0.0f); // the same segments
    strip.setLabels ("IN", "OUT");
    strip.setBarColours (juce::Colour (own), juce::Colour (own));
    EXPECT_EQ (watch.takeCount(), 0);

    strip.setLevels (linear (-10.0f), 0.0f); // one more
    const auto area = watch.takeArea();
    EXPECT_EQ (watch.takeCount(), 1);
    EXPECT_EQ (area.getX(), 5);
    EXPECT_EQ (area.getWidth(), 24);
    EXPECT_LE (area.getHeight(), 5);
    strip.setLevels (linear (-10.0f), linear (-30.0f));
    EXPECT_EQ (watch.takeArea().getX(), 33) << "the other bar";

    const auto before = paintPicture (strip);
    strip.setLabels ("MID", "SIDE");
    EXPECT_GT (countDifferentPixels (before, paintPicture (strip), 16), 20);
    strip.setGainReduction (6.0f); // a new bar moves the others
    EXPECT_EQ (watch.takeArea(), strip.getLocalBounds());
    watch.takeCount();
    for (int step = 1; step <= 9; ++step)
        strip.setGainReduction (6.0f + 0.005f * static_cast<float> (step));
    EXPECT_EQ (watch.takeCount(), 0);
    EXPECT_EQ (strip.getGainReductionDb(), 6.0f + 0.005f * 9.0f) << "small steps add up";
}

TEST (MeterPair, ShowsBarsAndReadoutsWithinItsBounds)
{
    MeterPair pair ("OUT L", "OUT R");
    pair.setSize (360, 44);
    pair.clock = [] { return 1.0; };
    EXPECT_EQ (pair.getMeter (1).getBounds(), juce::Rectangle<int> (46, 26, 272, 14));
    EXPECT_EQ (pair.getReadoutBounds (1), juce::Rectangle<int> (324, 22, 36, 22)) << "cut at the edge";
    EXPECT_EQ (pair.getReadout (0), "-");

    pair.setColours (juce::Colour (own), juce::Colour (own));
    pair.setLevels (linear (8.0f), linear (-12.34f));
    EXPECT_EQ (pair.getReadout (1), "-12.3");

    const auto picture = paintPicture (pair);
    SegmentedBar bar (24, 3.0f, SegmentedBar::Growth::right);
    bar.setBounds (pair.getMeter (0).getBounds().toFloat());
    EXPECT_EQ (segmentColours (picture, bar, true), expectedColours (24, 22, 19, 21, own));

    RepaintWatch watch (pair);
    pair.setLevels (linear (8.0f), linear (-12.33f));
    EXPECT_EQ (watch.takeCount(), 0);
    pair.setLevels (linear (8.0f), linear (-12.2f));
    EXPECT_EQ (watch.takeArea(), pair.getReadoutBounds (1));

    pair.setSize (20, 4);
    EXPECT_EQ (pair.getMeter (0).getWidth(), 1);

    pair.clock = [] { return 501.0; };
    pair.clear();
    pair.setLevels (1.0f, 0.0f);
    pair.clock = [] { return 1001.0; };
    pair.setLevels (0.0f, 0.0f);
    EXPECT_NEAR (pair.getMeter (0).getLevelDb(), -18.0f, 0.01f) << "half a second later";
}

TEST (MeterAccessibility, ReadsTheLevels)
{
    MeterStrip strip;
    strip.setLevels (0.0f, linear (-12.34f));
    const auto handler = strip.createAccessibilityHandler();
    EXPECT_EQ (handler->getValueInterface()->getCurrentValueAsString(), "IN silent, OUT -12.3 dB");
    EXPECT_TRUE (handler->getValueInterface()->isReadOnly());
}

} // namespace
} // namespace kestreleq::test
