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
          signal (impulse (static_cast<int> (sampleRate / 2.0)))
    {
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

TEST (EngineResponse, AirSoundsTheSameAtEveryRate)
{
    struct Row
    {
        double rate;
        int index;
        std::array<double, 4> gains; // at 1, 5, 10 and 15 kHz
    };

    for (const auto& [rate, index, gains] : std::vector<Row> {
             { 48000.0, 1, { 6.73, 16.41, 20.11, 19.03 } },
             { 48000.0, 2, { 6.07, 11.91, 16.24, 18.11 } },
             { 48000.0, 3, { 6.17, 10.56, 14.83, 17.07 } },
             { 48000.0, 4, { 5.69, 8.54, 12.03, 14.09 } },
             { 96000.0, 2, { 6.08, 11.94, 16.30, 18.25 } },
         })
    {
        const auto halvesRoundUp = (static_cast<float> (index) - 0.5f) / 4.0f;
        const MeasuredResponse measured ({ .airAmount = 1.0f, .airStep = halvesRoundUp }, rate);

        for (std::size_t i = 0; i < gains.size(); ++i)
            EXPECT_NEAR (measured.at (std::array { 1000.0, 5000.0, 10000.0, 15000.0 }[i]), gains[i], 0.006)
                << index << " at " << rate;
    }
}

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

/** All eight types against the analogue prototypes that they stand for, at frequencies far below the rate, where the
    bilinear map is straight; f in units of the filter's own frequency. */
TEST (Designer, MakesTheFilterThatItsTypeNames)
{
    constexpr double p = 1.0 / 1.3, a = 1.9952623149688795; // of the Q, and 12 dB: A^2 = 10^(12/20)
    const auto r = std::sqrt (a) * p;

    // The powers of s from 0 to 2 above the fraction's line, then below it; in the order of the types.
    const double prototypes[8][6] {
        { 1, 0, 0, 1, p, 1 },
        { 0, 0, 1, 1, p, 1 },
        { 0, p, 0, 1, p, 1 },
        { 1, 0, 1, 1, p, 1 },
        { 1, -p, 1, 1, p, 1 },
        { 1, a * p, 1, 1, p / a, 1 },
        { a * a, a * r, a, 1, r, a },
        { a, a * r, a * a, a, r, 1 },
    };

    for (int number = 0; number < 8; ++number)
    {
        const auto& [n0, n1, n2, d0, d1, d2] = prototypes[number];
        const auto type = static_cast<dsp::FilterType> (number);
        const auto section = dsp::cookbookSection (type, 10.0, 48000.0, 1.0 / p, 12.0);

        for (const auto f : { 0.1, 0.5, 0.9, 1.0, 1.5, 4.0, 20.0 })
        {
            const std::complex<double> s { 0.0, f };
            const auto prototype = (n0 + s * (n1 + s * n2)) / (d0 + s * (d1 + s * d2));
            EXPECT_LT (std::abs (dsp::responseAt (section, 10.0 * f, 48000.0) - prototype), 2e-3)
                << number << " at " << f;
        }
    }
}

TEST (Designer, KeepsItsLimits)
{
    const auto same = [] (const dsp::SectionSettings& x, const dsp::SectionSettings& y, double rate)
    { return dsp::designSection (x, rate) == dsp::designSection (y, rate); };
    using dsp::FilterType;

    EXPECT_TRUE (same ({ FilterType::lowPass, 18000.0, 0.7, 0 }, { FilterType::lowPass, 10800.0, 0.7, 0 }, 48000.0));
    EXPECT_TRUE (same ({ FilterType::lowPass, 30000.0, 0.7, 0 }, { FilterType::lowPass, 20000.0, 0.7, 0 }, 192000.0));
    EXPECT_TRUE (same ({ FilterType::peaking, 0.0, 0.0, 99.0 }, { FilterType::peaking, 1.0, 0.01, 36.0 }, 48000.0));
    EXPECT_TRUE (
        same ({ FilterType::peaking, 50.0, 900.0, -99.0 }, { FilterType::peaking, 50.0, 100.0, -60.0 }, 48000.0));
    EXPECT_FALSE (dsp::designSection ({}, 4.0).has_value());
    EXPECT_FALSE (dsp::designSection ({ FilterType::peaking, std::nan (""), 1.0, 0.0 }, 48000.0).has_value());

    const auto section = *dsp::designSection ({ FilterType::peaking, 1000.0, 1.0, 6.0 }, 48000.0);
    EXPECT_EQ (static_cast<double> (static_cast<float> (section.a1)), section.a1);
    EXPECT_NEAR (std::abs (dsp::responseAt (dsp::normalisedAt (section, 300.0, 48000.0, -3.0), 300.0, 48000.0)),
        std::pow (10.0, -3.0 / 20.0), 1e-12);
    EXPECT_EQ (dsp::normalisedAt (section, 0.0, 48000.0, 0.0), dsp::BiquadCoefficients {});
    EXPECT_EQ (dsp::normalisedAt (section, 300.0, -1.0, 0.0), dsp::BiquadCoefficients {});
}

} // namespace
} // namespace kestreleq::test
