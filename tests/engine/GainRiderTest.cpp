#include "engine/dsp/GainRider.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kestreleq::test
{
namespace
{

/** A rider that is fed blocks of two channels alike. */
struct RiderRig
{
    RiderRig() { rider.prepare (48000.0, 2); }

    std::vector<float> play (std::vector<float> left)
    {
        auto right = left;
        float* const channels[] = { left.data(), right.data() };
        rider.process (channels, static_cast<int> (left.size()));
        return left;
    }

    /** A steady level in dB. */
    void run (int seconds, double level)
    {
        for (int block = 0; block < 100 * seconds; ++block)
            play (std::vector<float> (480, static_cast<float> (std::pow (10.0, level / 20.0))));
    }

    dsp::GainRider rider;
};

TEST (GainRider, StaysInItsRangeAndHoldsOnNearSilence)
{
    RiderRig rig;
    rig.run (10, -70.0);
    EXPECT_NEAR (rig.rider.getGain(), 24.0, 1e-9);
    rig.run (10, -81.0);
    EXPECT_NEAR (rig.rider.getGain(), 24.0, 1e-9);

    rig.rider.reset (-500.0);
    EXPECT_EQ (rig.rider.getGain(), -80.0);
    rig.rider.reset (std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ (rig.rider.getGain(), 0.0);
    rig.rider.setFrozen (true);
    EXPECT_EQ (rig.play ({ 0.125f, 0.125f })[0], 0.125f) << "at once";
    rig.run (1, -30.0);
    EXPECT_EQ (rig.rider.getGain(), 0.0);
    rig.rider.setFrozen (false);
    rig.run (1, -81.0);
    EXPECT_EQ (rig.rider.getGain(), 0.0) << "a pause";
}

TEST (GainRider, LeavesOutWhatIsNotFinite)
{
    RiderRig rig;
    const auto bad = std::numeric_limits<float>::quiet_NaN();
    const auto infinite = std::numeric_limits<float>::infinity();
    const auto left = rig.play ({ 0.125f, bad, 0.125f, infinite });
    EXPECT_NEAR (rig.rider.getMeasuredLevel(), 20.0 * std::log10 (0.125), 1e-9);
    EXPECT_EQ (left[1], 0.0f);
    EXPECT_EQ (left[3], 0.0f);
    EXPECT_GT (left[0], 0.12f);
}

} // namespace
} // namespace kestreleq::test
