#include "engine/dsp/EqEngine.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace kestreleq::test
{
namespace
{

using dsp::simd::InstructionSet;
using Channels = std::array<std::vector<float>, 2>;

/** Equal to the bit, where a NaN that a bypassed lane hands on equals any other. */
bool isSame (const Channels& a, const Channels& b)
{
    for (std::size_t channel = 0; channel < 2; ++channel)
        for (std::size_t n = 0; n < a[channel].size(); ++n)
            if (! (a[channel][n] == b[channel][n] || (std::isnan (a[channel][n]) && std::isnan (b[channel][n]))))
                return false;

    return true;
}

/** The scalar form, which is the definition, and another one, fed alike. */
class FormPair
{
public:
    FormPair (InstructionSet set, double rate)
        : fast (dsp::simd::kernelsFor (set))
    {
        definition.prepare (rate);
        fast.prepare (rate);
    }

    /** Processes in blocks of random sizes. Whether both agree to the last bit. */
    bool agree (const dsp::EngineParameters& settings, Channels signal, std::mt19937& random)
    {
        auto expected = signal;
        definition.setParameters (settings);
        fast.setParameters (settings);
        const auto total = static_cast<int> (signal[0].size());

        for (int start = 0; start < total;)
        {
            const auto length = std::min (1 + static_cast<int> (random() % 200), total - start);
            definition.process (expected[0].data() + start, expected[1].data() + start, length);
            fast.process (signal[0].data() + start, signal[1].data() + start, length);
            start += length;
        }

        return isSame (signal, expected);
    }

private:
    dsp::EqEngine definition { dsp::simd::scalarKernels() };
    dsp::EqEngine fast;
};

dsp::EngineParameters randomSettings (std::mt19937& random)
{
    const auto oneIn = [&] (unsigned n) { return random() % n == 0; };
    const auto value = [&] { return static_cast<float> (random() % 1025) / 1024.0f; };
    dsp::EngineParameters settings;
    settings.breakMode = ! oneIn (3);
    settings.link = false;
    settings.midSide = oneIn (3);
    settings.trim = value();

    for (auto& lane : settings.lanes)
    {
        for (auto& band : lane.bands)
            band = oneIn (3) ? 0.4f : value(); // 0.4 drives nothing

        lane.airAmount = oneIn (3) ? 0.05f : value(); // shuts the air's gate
        lane.airStep = value();
        lane.inputGain = value();
        lane.outputGain = value();
        lane.bypass = oneIn (8);
    }

    return settings;
}

/** Noise, a slow sine whose steps are small, silence, and the sine again from rest. */
Channels variedSignal (std::mt19937& random, double rate)
{
    Channels signal;

    for (auto& channel : signal)
    {
        const auto seed = static_cast<std::uint32_t> (random());
        const auto slow = sine (30.0 + static_cast<double> (seed % 50), rate, 2000, seed % 3 == 0 ? 1e-3 : 0.8);
        channel = whiteNoise (seed, 700, 0.5);
        channel.insert (channel.end(), slow.begin(), slow.end());
        channel.resize (channel.size() + random() % 500);
        channel.insert (channel.end(), slow.begin(), slow.end());
        channel.resize (6000);
    }

    return signal;
}

using KernelForms = testing::TestWithParam<InstructionSet>;
} // namespace

TEST_P (KernelForms, GiveTheDefinitionsBits)
{
    for (const auto rate : { 44100.0, 192000.0 })
    {
        std::mt19937 random (11);
        FormPair forms (GetParam(), rate);

        // One channel at rest stays so. The state goes on from one segment to the next.
        EXPECT_TRUE (forms.agree ({}, { std::vector<float> (300), whiteNoise (1, 300) }, random));

        for (int segment = 0; segment < 16; ++segment)
            EXPECT_TRUE (forms.agree (randomSettings (random), variedSignal (random, rate), random))
                << "segment " << segment << " at " << rate;
    }
}

TEST_P (KernelForms, TreatBadSamplesAsTheDefinitionDoes)
{
    constexpr auto infinity = std::numeric_limits<float>::infinity();
    constexpr std::array bad { std::numeric_limits<float>::quiet_NaN(), infinity, -infinity,
        std::numeric_limits<float>::max() };
    std::mt19937 random (12);

    // At every place of two chunks and a piece, in either channel, in settings that change now and then.
    FormPair forms (GetParam(), 48000.0);
    dsp::EngineParameters settings;

    for (std::size_t place = 0; place < 140; ++place)
    {
        if (place % 5 == 0)
            settings = randomSettings (random);

        for (std::size_t i = 0; i < 2 * bad.size(); i += 1 + place % 3)
        {
            Channels signal { whiteNoise (1, 200, 0.5), whiteNoise (2, 200, 0.5) };
            signal[i % 2][place] = bad[i / 2];
            ASSERT_TRUE (forms.agree (settings, signal, random)) << bad[i / 2] << " at " << place;
        }
    }
}

TEST_P (KernelForms, MeasureTheSamePower)
{
    const auto& fast = dsp::simd::kernelsFor (GetParam());
    const auto& definition = dsp::simd::scalarKernels();
    const auto left = whiteNoise (1, 1000), right = whiteNoise (2, 1000);

    for (const int length : { 1, 3, 4, 7, 64, 1000 })
    {
        const auto tolerance = 1e-12 * length;

        for (const auto measure : { &dsp::simd::Kernels::measure, &dsp::simd::Kernels::measureMidSide })
        {
            const auto actual = (fast.*measure) (left.data(), right.data(), length);
            const auto expected = (definition.*measure) (left.data(), right.data(), length);
            EXPECT_NEAR (actual.first, expected.first, tolerance);
            EXPECT_NEAR (actual.second, expected.second, tolerance);
            EXPECT_NEAR (actual.product, expected.product, tolerance);
        }
    }
}

INSTANTIATE_TEST_SUITE_P (Engine, KernelForms, testing::Values (InstructionSet::sse2, InstructionSet::avx2),
    [] (const auto& form) { return form.param == InstructionSet::sse2 ? "SSE2" : "AVX2"; });

} // namespace kestreleq::test
