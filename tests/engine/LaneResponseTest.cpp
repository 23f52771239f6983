#include "engine/dsp/LaneResponse.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace kestreleq::test
{
namespace
{

TEST (LaneResponse, IsWhatAnImpulseThroughTheProcessorShows)
{
    constexpr auto rate = 96000.0;
    constexpr auto length = 192000;
    std::mt19937 random (7);
    std::uniform_real_distribution<float> anyValue (0.0f, 1.0f);

    std::vector<double> frequencies;
    for (auto frequency = 20.0; frequency < 40000.0; frequency *= 1.17)
        frequencies.push_back (frequency);

    dsp::LaneResponse response;
    response.prepare (rate, frequencies);

    for (int round = 0; round < 6; ++round)
    {
        ProcessorRig rig (rate);
        rig.set ("link", 0.0f);
        dsp::LaneParameters lane;
        const std::array ids { "subR", "40hzR", "160hzR", "650hzR", "2500hzR" };

        for (std::size_t band = 0; band < ids.size(); ++band)
            rig.set (ids[band], lane.bands[band] = anyValue (random));

        rig.set ("airGainR", lane.airAmount = round == 0 ? 0.0f : anyValue (random));
        rig.set ("airBandR", lane.airStep = static_cast<float> (round % 5) / 4.0f);

        EXPECT_TRUE (response.setParameters (lane));
        EXPECT_FALSE (response.setParameters (lane));

        Stereo signal { std::vector<float> (length), impulse (length) };
        rig.process (signal);

        for (std::size_t i = 0; i < frequencies.size(); ++i)
        {
            const auto measured = 20.0 * std::log10 (binAmplitude (signal[1], frequencies[i], rate) * length / 2.0);
            EXPECT_NEAR (response.getCurve()[i], measured, 0.02)
                << "round " << round << ", " << frequencies[i] << " Hz";
        }
    }
}

} // namespace
} // namespace kestreleq::test
