#include "engine/dsp/EqEngine.h"
#include "tests/support/ReferenceEq.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace kestreleq::test
{
namespace
{

/** The gain in dB that an impulse through the engine's left lane shows at a frequency. */
class MeasuredResponse
{
public:
    MeasuredResponse (const dsp::EngineParameters& settings, double sampleRate)
        : rate (sampleRate),
          signal (impulse (static_cast<int> (2.0 * sampleRate)))
    {
        dsp::EqEngine engine;
        engine.prepare (rate);
        engine.setParameters (settings);
        auto other = signal;
        engine.process (signal.data(), other.data(), static_cast<int> (signal.size()));
    }

    double at (double frequency) const
    {
        // The mean over the impulse's length hides half of it.
        return 20.0 * std::log10 (binAmplitude (signal, frequency, rate) * static_cast<double> (signal.size()) / 2.0);
    }

private:
    double rate;
    std::vector<float> signal;
};

dsp::EngineParameters flatSettings()
{
    dsp::EngineParameters settings;
    for (auto& lane : settings.lanes)
        lane.airAmount = lane.airStep = 0.0f;
    return settings;
}

double decibels (double magnitude)
{
    return 20.0 * std::log10 (magnitude);
}

/** The magnitude of the fixed output filter, which is all that flat settings leave. */
double lift (double frequency, double sampleRate)
{
    return expectedMagnitude (ReferenceParameters(), 0, frequency, sampleRate);
}

class BandResponse : public testing::TestWithParam<std::tuple<double, int>>
{
};

TEST_P (BandResponse, IsTheAnalyticOne)
{
    const auto [rate, band] = GetParam();
    const auto* id = ReferenceParameters::entries()[static_cast<std::size_t> (band)].id.data();

    // What rounding to single precision does to the lowest filters grows with the square of the rate.
    const auto tolerance = 0.004 + 0.012 * std::pow (rate / 48000.0, 2.0);

    for (const auto value : { 0.0f, 0.25f, 0.5f, 0.75f, 1.0f })
    {
        auto settings = flatSettings();
        settings.lanes[0].bands[static_cast<std::size_t> (band)] = value;
        ReferenceParameters parameters;
        parameters.set (id, value);
        const MeasuredResponse measured (settings, rate);

        for (const auto frequency : { 20.0, 35.0, 60.0, 100.0, 200.0, 450.0, 1000.0, 2500.0, 8000.0, 0.45 * rate })
            EXPECT_NEAR (
                measured.at (frequency), decibels (expectedMagnitude (parameters, 0, frequency, rate)), tolerance)
                << id << " " << value << " at " << frequency;
    }
}

INSTANTIATE_TEST_SUITE_P (EngineResponse, BandResponse,
    testing::Combine (testing::Values (44100.0, 48000.0, 96000.0, 192000.0), testing::Range (0, 5)));

TEST (EngineResponse, FlatSettingsLeaveOnlyTheLift)
{
    for (const auto rate : { 44100.0, 48000.0, 96000.0, 192000.0 })
    {
        const MeasuredResponse measured (flatSettings(), rate);

        for (double frequency = 20.0; frequency <= 0.45 * rate; frequency *= 1.1)
            EXPECT_NEAR (measured.at (frequency), decibels (lift (frequency, rate)), 0.01)
                << frequency << " of " << rate;

        EXPECT_NEAR (measured.at (8000.0), 0.5, 0.01);
    }
}

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
        auto settings = flatSettings();
        settings.lanes[0].airAmount = 1.0f;
        settings.lanes[0].airStep = (static_cast<float> (index) - 0.5f) / 4.0f; // halves round up
        const MeasuredResponse measured (settings, rate);

        for (std::size_t i = 0; i < gains.size(); ++i)
            EXPECT_NEAR (measured.at (std::array { 1000.0, 5000.0, 10000.0, 15000.0 }[i]), gains[i], 0.006)
                << index << " at " << rate;
    }
}

TEST (EngineResponse, TheBankTellsTheResponseItHas)
{
    auto settings = flatSettings();
    settings.lanes[0].bands = { 0.9f, 0.1f, 0.6f, 0.3f, 0.8f };
    settings.lanes[0].airAmount = 0.7f;
    settings.lanes[0].airStep = 0.5f;
    const MeasuredResponse measured (settings, 96000.0);
    dsp::EqEngine engine;
    engine.prepare (96000.0);
    engine.setParameters (settings);

    for (double frequency = 20.0; frequency < 40000.0; frequency *= 1.3)
    {
        const auto told = std::abs (engine.getToneBank().response (0, frequency));
        const auto output = lift (frequency, 96000.0);
        EXPECT_NEAR (measured.at (frequency), decibels (told * output), 0.002) << frequency;
    }
}

/** All eight types against the analogue prototypes that they stand for, at frequencies far below the rate, where the
    bilinear map is straight; f in units of the filter's own frequency. */
TEST (Designer, MakesTheFilterThatItsTypeNames)
{
    using Complex = std::complex<double>;
    using Type = dsp::FilterType;
    constexpr double q = 1.3, a = 1.9952623149688795; // 12 dB: A^2 = 10^(12/20)

    const auto prototype = [=] (Type type, Complex s) -> Complex
    {
        const auto poles = s * s + s / q + 1.0;
        const auto root = std::sqrt (a) / q;
        switch (type)
        {
            case Type::lowPass:
                return 1.0 / poles;
            case Type::highPass:
                return s * s / poles;
            case Type::bandPass:
                return (s / q) / poles;
            case Type::notch:
                return (s * s + 1.0) / poles;
            case Type::allPass:
                return (s * s - s / q + 1.0) / poles;
            case Type::peaking:
                return (s * s + s * (a / q) + 1.0) / (s * s + s / (a * q) + 1.0);
            case Type::lowShelf:
                return a * (s * s + root * s + a) / (a * s * s + root * s + 1.0);
            case Type::highShelf:
                return a * (a * s * s + root * s + 1.0) / (s * s + root * s + a);
        }
        return 0.0;
    };

    for (int number = 0; number < 8; ++number)
    {
        const auto type = static_cast<Type> (number);
        const auto section = dsp::cookbookSection (type, 10.0, 48000.0, q, 12.0);

        for (const auto f : { 0.1, 0.5, 0.9, 1.0, 1.5, 4.0, 20.0 })
            EXPECT_LT (std::abs (dsp::responseAt (section, 10.0 * f, 48000.0) - prototype (type, { 0.0, f })), 2e-3)
                << number << " at " << f;
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
