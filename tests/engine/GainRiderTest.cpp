#include "engine/dsp/GainRider.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kestreleq::test
{
namespace
{

/** Two channels of a steady level in dB, block after block. */
struct RiderRig
{
    RiderRig() { rider.prepare (48000.0, 2); }

    void run (double seconds, double level)
    {
        const auto amplitude = static_cast<float> (std::pow (10.0, level / 20.0));

        for (int n = 0; n < static_cast<int> (std::lround (seconds * 48000.0)); n += length)
        {
            std::vector<float> left (static_cast<std::size_t> (length), amplitude), right (left);
            float* const channels[] = { left.data(), right.data() };
            rider.process (channels, length);
        }
    }

    static constexpr int length = 480;
    dsp::GainRider rider;
};

TEST (GainRider, StaysInItsRangeAndHoldsOnNearSilence)
{
    RiderRig rig;
    rig.run (10.0, -70.0);
    EXPECT_NEAR (rig.rider.getGain(), 24.0, 1e-9);
    rig.run (10.0, -81.0);
    EXPECT_NEAR (rig.rider.getGain(), 24.0, 1e-9);

    rig.rider.reset (-500.0);
    EXPECT_EQ (rig.rider.getGain(), -80.0);
    rig.rider.reset (std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ (rig.rider.getGain(), 0.0);
    rig.rider.setFrozen (true);
    float left[] { 0.125f, 0.125f }, right[] { 0.125f, 0.125f };
    float* const channels[] = { left, right };
    rig.rider.process (channels, 2);
    EXPECT_EQ (left[0], 0.125f) << "at once";
    rig.run (1.0, -30.0);
    EXPECT_EQ (rig.rider.getGain(), 0.0);
    rig.rider.setFrozen (false);
    rig.run (1.0, -81.0);
    EXPECT_EQ (rig.rider.getGain(), 0.0) << "a pause";
}

TEST (GainRider, LeavesOutWhatIsNotFinite)
{
    RiderRig rig;
    const auto bad = std::numeric_limits<float>::quiet_NaN();
    const auto infinite = std::numeric_limits<float>::infinity();
    std::vector<float> left { 0.125f, bad, 0.125f, infinite }, right (4, 0.125f);
    float* const channels[] = { left.data(), right.data() };
    rig.rider.process (channels, 4);

    EXPECT_NEAR (rig.rider.getMeasuredLevel(), 20.0 * std::log10 (0.125), 1e-9);
    EXPECT_EQ (left[1], 0.0f);
    EXPECT_EQ (left[3], 0.0f);
    EXPECT_GT (left[0], 0.12f);
}

} // namespace
} // namespace kestreleq::test
