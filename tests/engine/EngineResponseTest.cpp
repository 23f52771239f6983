#include "engine/dsp/Bands.h"
#include "engine/dsp/EqEngine.h"
#include "engine/dsp/LaneResponse.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace kestreleq::test
{
namespace
{

/** The gain in dB that an impulse through the engine's left lane shows at a frequency. */
struct MeasuredResponse
{
    MeasuredResponse (const dsp::LaneParameters& lane, double sampleRate)
        : rate (sampleRate),
          signal (static_cast<std::size_t> (sampleRate / 2.0))
    {
        signal[0] = 1.0f;
        engine.prepare (rate);
        engine.setParameters ({ .lanes = { lane, lane } });
        auto other = signal;
        engine.process (signal.data(), other.data(), static_cast<int> (signal.size()));
    }

    double at (double frequency) const
    {
        // The mean over the impulse's length hides half of it.
        return 20.0 * std::log10 (binAmplitude (signal, frequency, rate) * static_cast<double> (signal.size()) / 2.0);
    }

    double rate;
    std::vector<float> signal;
    dsp::EqEngine engine;
};

TEST (EngineResponse, TheChartAndTheBankTellWhatIsHeard)
{
    constexpr auto rate = 96000.0;
    std::mt19937 random (7);
    const auto anyValue = [&] { return static_cast<float> (random() % 1025) / 1024.0f; };
    std::vector<double> frequencies;

    for (auto frequency = 20.0; frequency < 40000.0; frequency *= 1.4)
        frequencies.push_back (frequency);

    dsp::LaneResponse chart;
    chart.prepare (rate, frequencies);
    const auto output = dsp::designSection (dsp::outputFilterSettings, rate).value();
    dsp::LaneParameters lane;

    for (int round = 0; round < 9; ++round)
    {
        // One kind alone, so that each must be seen to change.
        if (round % 3 == 0)
            lane.airStep = static_cast<float> (4 - round / 3) / 4.0f;
        else if (round % 3 == 1)
            lane.airAmount = round == 4 ? 0.0f : anyValue();
        else
            std::generate (lane.bands.begin(), lane.bands.end(), anyValue);

        EXPECT_TRUE (chart.setParameters (lane));
        EXPECT_FALSE (chart.setParameters (lane));
        const MeasuredResponse measured (lane, rate);

        for (std::size_t i = 0; i < frequencies.size(); ++i)
        {
            const auto heard = measured.at (frequencies[i]);
            const auto bank = measured.engine.getToneBank().response (0, frequencies[i]);
            const auto told = std::abs (bank * dsp::responseAt (output, frequencies[i], rate));
            EXPECT_NEAR (chart.getCurve()[i], heard, 0.02) << "round " << round << ", " << frequencies[i] << " Hz";
            EXPECT_NEAR (20.0 * std::log10 (told), heard, 0.02) << "round " << round << ", " << frequencies[i] << " Hz";
        }
    }
}

} // namespace
} // namespace kestreleq::test
