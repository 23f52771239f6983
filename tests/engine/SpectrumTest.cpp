#include "engine/analysis/SpectrumAnalyser.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <tuple>

namespace kestreleq::test
{
namespace
{

using namespace analysis;

constexpr auto twoPi = 2.0 * std::numbers::pi;
constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
constexpr auto infinity = std::numeric_limits<float>::infinity();

std::vector<float> curveOf (SpectrumAnalyser& analyser, std::size_t slot)
{
    std::vector<float> curve (512, 1.0f);
    analyser.readCurve (slot, curve);
    return curve;
}

std::vector<float> curveAfter (SpectrumAnalyser& analyser, std::size_t numSamples, double amplitude = 1.0)
{
    const auto count = static_cast<int> (numSamples);
    analyser.push (0, whiteNoise (2, count, amplitude).data(), count);
    return curveOf (analyser, 0);
}

const std::vector<float> silentCurve (512, -120.0f);

TEST (SpectrumEstimator, AgreesWithADirectTransform)
{
    constexpr int length = 256;
    SpectrumEstimator estimator;
    estimator.prepare (48000.0, length);
    estimator.setWindow (Window::hann); // as the charts do
    auto frame = whiteNoise (3, length, 0.3);
    frame[40] = nan;
    frame[41] = -infinity;
    estimator.analyse (frame);
    frame[40] = frame[41] = 0.0f;

    for (int n = 0; n < length; ++n)
        frame[static_cast<std::size_t> (n)] *= static_cast<float> (std::pow (std::sin (twoPi * n / (2 * length)), 2));

    for (int k = 0; k <= length / 2; ++k)
    {
        const auto oneSided = k % (length / 2) == 0 ? 0.5 : 1.0;
        const auto amplitude = oneSided * binAmplitude (frame, k, length) * 2.0; // the window's mean is a half
        EXPECT_NEAR (estimator.spectrum()[static_cast<std::size_t> (k)], 20.0 * std::log10 (amplitude), 2e-3);
    }
}

TEST (SpectrumEstimator, AveragesAndHoldsPeaksFrameByFrame)
{
    constexpr std::size_t length = 256, bin = 32;
    constexpr double framesPerSecond = 48000.0 / length;

    constexpr auto averaging = 30.0, hold = 20.0, decay = 100.0; // ms, ms, dB a second
    SpectrumEstimator estimator;
    estimator.prepare (48000.0, length);
    estimator.setAveragingTime (averaging);
    estimator.setPeakHoldTime (hold);
    estimator.setPeakDecay (decay);
    const auto a = std::exp (-1000.0 / (framesPerSecond * averaging));
    auto averaged = -120.0, held = -120.0;
    auto framesHeld = 0;
    std::mt19937 random (7);

    for (int i = 0; i < 600; ++i)
    {
        const auto level = i % 300 == 1 ? -3.0 : -10.0 - static_cast<double> (random() % 60);
        estimator.analyse (sine (bin, length, length, std::pow (10.0, level / 20.0)));
        averaged = (1.0 - a) * level + a * averaged;
        framesHeld = level > held ? 0 : framesHeld + 1;
        const auto mayFall = framesHeld >= hold / 1000.0 * framesPerSecond;
        held = std::max (level, mayFall ? held - decay / framesPerSecond : held);
        ASSERT_NEAR (estimator.averagedSpectrum()[bin], averaged, 2e-3) << i;
        ASSERT_NEAR (estimator.peakSpectrum()[bin], held, 2e-3) << i;
    }
}

/** One slot with every frame of the whole stream analysed and every formula written out. */
struct SlotModel
{
    void push (std::span<const float> samples)
    {
        const auto count = std::min (samples.size(), 4 * length - 1 - (stream.size() - drained));
        stream.insert (stream.end(), samples.begin(), samples.begin() + static_cast<std::ptrdiff_t> (count));
    }

    void update (bool shown)
    {
        auto analysed = false;

        for (drained = stream.size(); frameEnd <= drained; frameEnd += hop)
        {
            estimator.analyse (std::span (stream).subspan (frameEnd - length, length));
            analysed = true;
        }

        hasData = hasData || (shown && analysed);

        for (std::size_t i = 0; i < display.size(); ++i)
        {
            if (shown && analysed)
                latest[i] = levelAt (static_cast<double> (i));

            const auto target = ! shown ? -120.0 : hasData ? latest[i] : display[i];
            display[i] += (target - display[i]) * (target > display[i] ? 0.35 : 0.08);
            display[i] = std::abs (display[i] + 120.0) <= 0.01 ? -120.0 : display[i];
        }
    }

    double levelAt (double i) const
    {
        const auto bins = static_cast<double> (length / 2 + 1), points = static_cast<double> (latest.size());
        const auto binAt = [&] (double point)
        { return 20.0 * std::pow (rate * 0.5 / 20.0, point / points) * static_cast<double> (length) / rate; };
        const auto bin = [&] (double k) { return estimator.spectrum().begin() + static_cast<std::ptrdiff_t> (k); };
        const auto low = std::clamp (std::floor (binAt (i)), 0.0, bins - 1.0);
        const auto high = std::clamp (std::ceil (binAt (i + 1.0)), low + 1.0, bins);

        if (high - low >= 3.0)
            return *std::max_element (bin (low), bin (high));

        const auto b = binAt (i + 0.5);
        return std::lerp (*bin (b), *bin (std::min (b + 1.0, bins - 1.0)), b - std::floor (b));
    }

    double rate;
    std::size_t length, hop, frameEnd = length;
    std::vector<double> display, latest = display;
    SpectrumEstimator estimator {};
    std::vector<float> stream {};
    std::size_t drained = 0;
    bool hasData = false;
};

TEST (SpectrumAnalyser, AgreesWithAModelThatAnalysesEveryFrame)
{
    std::mt19937 random (11);

    for (const auto& [rate, length, hop, points] :
        { std::tuple { 48000.0, 4096u, 1024u, 512u }, { 44100.0, 256u, 100u, 64u }, { 96000.0, 512u, 512u, 300u },
            { 40.5, 256u, 1u, 64u }, { 1e9, 2048u, 2047u, 512u } })
    {
        SpectrumAnalyser analyser;
        analyser.setOn (true);
        ASSERT_TRUE (analyser.prepare (rate, length, hop, points));
        SlotModel model { .rate = rate, .length = length, .hop = hop, .display = std::vector (points, -120.0) };
        model.estimator.prepare (rate, length);
        auto on = true;

        for (int round = 0; round < 60; ++round)
        {
            // Several blocks or none, from crumbs to more than the ring can hold.
            for (auto block = static_cast<std::uint32_t> (random() % 4); block > 0; --block)
            {
                const auto count = static_cast<int> (random() % (length * (block == 3 ? 6 : 1)));
                const auto noise = whiteNoise (block, count, 1e-3 * static_cast<double> (1 + random() % 500));
                analyser.push (1, noise.data(), count);

                if (on)
                    model.push (noise);
            }

            on = on != (random() % 6 == 0);
            analyser.setSlotOn (1, on);
            const auto curve = curveOf (analyser, 1);
            EXPECT_EQ (analyser.slotMask(), on ? 3u : 1u);
            model.update (on);

            for (std::size_t i = 0; i < points; ++i)
                ASSERT_NEAR (curve[i], model.display[i], 5e-3) << "round " << round << ", point " << i;
        }
    }
}

TEST (SpectrumAnalyser, IgnoresSamplesWhileUnpreparedOrOff)
{
    SpectrumAnalyser analyser;
    analyser.setOn (true);

    EXPECT_FALSE (analyser.prepare (double { nan }, 4096, 1024, 512));
    EXPECT_EQ (curveAfter (analyser, 4096), silentCurve);

    // Neither a clearing nor a pause joins the samples before it to those after it.
    ASSERT_TRUE (analyser.prepare (48000.0, 4096, 1024, 512));
    EXPECT_EQ (curveAfter (analyser, 4095), silentCurve);
    analyser.clear();
    EXPECT_EQ (curveAfter (analyser, 4095), silentCurve);
    analyser.setOn (false);
    EXPECT_EQ (curveAfter (analyser, 4096), silentCurve);
    analyser.setOn (true);
    EXPECT_EQ (curveAfter (analyser, 4095), silentCurve);
    const auto shown = curveAfter (analyser, 1);
    EXPECT_NE (shown, silentCurve);
    analyser.setOn (false);
    EXPECT_EQ (curveAfter (analyser, 4096), shown);
    EXPECT_EQ (curveOf (analyser, 2), silentCurve);
}

} // namespace
} // namespace kestreleq::test
