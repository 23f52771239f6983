#include "tests/support/Signals.h"
#include "tests/support/Vst3Module.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <string>

namespace kestreleq::test
{
namespace
{

constexpr double rate = 48000.0;

using Channels = std::array<std::vector<float>, 2>;

constexpr auto pi = std::numbers::pi;

/** Blackman-Harris over 0 to 1: what it lets through elsewhere lies 92 dB down. */
double window (double x)
{
    return 0.35875 - 0.48829 * std::cos (2.0 * pi * x) + 0.14128 * std::cos (4.0 * pi * x) -
        0.01168 * std::cos (6.0 * pi * x);
}

/** The peak of what lies above 6 kHz, in dB over another peak (linear). */
double aboveSixKilohertzDb (std::span<const float> signal, double overPeak)
{
    constexpr auto numTaps = 1023;
    constexpr auto middle = numTaps / 2;
    std::vector<double> taps (numTaps);

    for (auto i = 0; i < numTaps; ++i)
    {
        const auto x = 2.0 * pi * 6000.0 / rate * (i - middle);
        const auto low = i == middle ? 12000.0 / rate : std::sin (x) / (pi * (i - middle));
        taps[static_cast<std::size_t> (i)] = ((i == middle ? 1.0 : 0.0) - low) * window ((i + 0.5) / numTaps);
    }

    auto greatest = 0.0;

    for (std::size_t start = 0; start + numTaps <= signal.size(); ++start)
    {
        auto sum = 0.0;

        for (std::size_t i = 0; i < numTaps; ++i)
            sum += taps[i] * static_cast<double> (signal[start + i]);

        greatest = std::max (greatest, std::abs (sum));
    }

    return 20.0 * std::log10 (greatest / overPeak);
}

/** The largest step from one sample to the next. */
double largestStep (std::span<const float> signal)
{
    auto largest = 0.0;

    for (std::size_t n = 1; n < signal.size(); ++n)
        largest = std::max (largest, std::abs (static_cast<double> (signal[n]) - static_cast<double> (signal[n - 1])));

    return largest;
}

/** The built module, and what a host does to it between its blocks. */
class Player
{
public:
    explicit Player (int blockSize, const Settings& settings = {})
        : block (blockSize)
    {
        instance.start (rate, block);
        instance.set (settings);
    }

    void selectProgram (int index)
    {
        auto& controller = *instance.controller;
        controller.setParamNormalized (programParameterId (controller), index / 5.0);
    }

    /** What comes out. */
    Channels play (
        Channels audio, const std::function<void (int start)>& beforeBlock = [] (int) {})
    {
        const auto total = static_cast<int> (audio[0].size());

        for (int start = 0; start < total; start += block)
        {
            beforeBlock (start);
            instance.process (audio[0].data() + start, audio[1].data() + start, std::min (block, total - start));
        }

        return audio;
    }

    /** The same for a sine, a little softer on the right. */
    Channels playSine (
        double frequency, int count, const std::function<void (int start)>& beforeBlock = [] (int) {})
    {
        return play (
            { sine (frequency, rate, count, levels[0]), sine (frequency, rate, count, levels[1]) }, beforeBlock);
    }

    /** The greater peak of both channels after silence. */
    double peakInSilence (int count)
    {
        const std::vector<float> silence (static_cast<std::size_t> (count));
        const auto output = play ({ silence, silence });
        return std::max (peak (output[0]), peak (output[1]));
    }

    static constexpr double levels[] { 0.5, 0.35 };

private:
    const int block;
    Vst3Module module;

public:
    Vst3Instance instance { module };
};

/** Lanes apart, so that every switch has something to change. */
const Settings apart { { "link", 0 }, { "sub", 0.65 }, { "40hz", 0.6 }, { "160hz", 0.4 }, { "650hz", 0.65 },
    { "2500hz", 0.7 }, { "airGain", 0.4 }, { "subR", 0.3 }, { "40hzR", 0.65 }, { "650hzR", 0.4 }, { "airGainR", 0.4 },
    { "airBand", 0.5 }, { "airBandR", 0.75 }, { "inGain1", 0.55 }, { "outGain1", 0.45 } };

void expectBelow (double measured, double limit, const std::string& what)
{
    testing::Test::RecordProperty (what, std::to_string (measured));
    EXPECT_LT (measured, limit) << what;
}

// A value that a host draws over a second, block by block, leaves no zipper above the tone.
TEST (Motion, SweptValuesLeaveNoProducts)
{
    for (const int block : { 64, 2048 })
        for (const std::string id : { "sub", "160hz", "trim", "inGain1", "outGain1" })
        {
            Player player (block);
            const auto output = player.playSine (100.0, 48000,
                [&] (int start) {
                    player.instance.set ({ { id, start / rate } });
                });
            expectBelow (aboveSixKilohertzDb (output[0], Player::levels[0]), -70.0,
                id + " swept, blocks of " + std::to_string (block));
        }
}

/** A sine of 100 Hz while something goes back and forth, at several places of its period. */
class ChangingSine
{
public:
    using Action = std::function<void (Player&)>;

    ChangingSine (int block, const Settings& before, const Action& there, const Action& back)
    {
        Player player (block, before);
        auto changes = 0;
        player.playSine (100.0, 24000);
        output = player.playSine (100.0, numChanges * stretch,
            [&] (int start)
            {
                if (changes < numChanges && start >= changes * stretch + 1000 + 60 * changes)
                    (changes++ % 2 == 0 ? there : back) (player);
            });
    }

    /** What lies above 6 kHz, in dB over the input, in the worse channel. */
    double above() const
    {
        return std::max (
            aboveSixKilohertzDb (output[0], Player::levels[0]), aboveSixKilohertzDb (output[1], Player::levels[1]));
    }

    /** The largest step over the largest far from any change, in the worse channel. */
    double step() const
    {
        auto worst = 0.0;

        for (const auto& channel : output)
        {
            auto normal = 0.0;

            for (std::size_t i = 1; i < numChanges; ++i)
                normal = std::max (normal, largestStep (std::span (channel).subspan (i * stretch - 2000, 2000)));

            worst = std::max (worst, largestStep (channel) / normal);
        }

        return worst;
    }

private:
    static constexpr int numChanges = 8;
    static constexpr int stretch = 7200;
    Channels output;
};

TEST (Motion, SwitchesDoNotClick)
{
    for (const int block : { 64, 2048 })
        for (const std::string id :
            { "bypass", "laneABypass", "laneBBypass", "link", "msMode", "airBand", "breakMode" })
        {
            const auto name = id + ", blocks of " + std::to_string (block);
            const ChangingSine changing (
                block, apart,
                [&] (Player& player) {
                    player.instance.set ({ { id, 1.0 } });
                },
                [&] (Player& player) {
                    player.instance.set ({ { id, 0.0 } });
                });
            expectBelow (changing.above(), id == "breakMode" ? -75.0 : -80.0, name + ", above 6 kHz");
            expectBelow (changing.step(), 3.0, name + ", step");
        }
}

TEST (Motion, ValuesThatJumpDoNotClick)
{
    std::vector<char> states[2];

    for (const bool isBusy : { false, true })
        states[isBusy] = Player (512, isBusy ? apart : Settings()).instance.save();

    for (const int block : { 64, 512 })
    {
        const auto measure =
            [&] (const std::string& what, const ChangingSine::Action& there, const ChangingSine::Action& back)
        {
            const auto name = what + " jumps, blocks of " + std::to_string (block);
            const ChangingSine changing (block, {}, there, back);
            expectBelow (changing.above(), -45.0, name + ", above 6 kHz");
            expectBelow (changing.step(), 3.0, name + ", step");
        };

        measure (
            "trim",
            [] (Player& player) {
                player.instance.set ({ { "trim", 0.9 } });
            },
            [] (Player& player) {
                player.instance.set ({ { "trim", 0.1 } });
            });
        measure (
            "program", [] (Player& player) { player.selectProgram (2); },
            [] (Player& player) { player.selectProgram (5); });
        measure (
            "state", [&] (Player& player) { player.instance.restore (states[1]); },
            [&] (Player& player) { player.instance.restore (states[0]); });
    }
}

// What the tests before measure shows a switch without a fade, and a sweep of 20 dB a second in steps.
TEST (Motion, TheMeasuresSeeAStep)
{
    auto swept = sine (100.0, rate, 24000, 0.1);

    for (std::size_t n = 0; n < swept.size(); ++n)
        swept[n] *= static_cast<float> (std::pow (10.0, static_cast<double> (n / 64 * 64) / rate));

    EXPECT_GT (aboveSixKilohertzDb (swept, peak (swept)), -70.0);

    auto stepped = sine (100.0, rate, 9600, 0.5);

    for (std::size_t n = 4920; n < stepped.size(); ++n)
        stepped[n] *= 0.25f;

    EXPECT_GT (aboveSixKilohertzDb (stepped, 0.5), -45.0);
    EXPECT_GT (largestStep (stepped) / largestStep (std::span (stepped).first (4000)), 3.0);
    EXPECT_LT (aboveSixKilohertzDb (std::span (stepped).first (4000), 0.5), -85.0);
}

// A host that stops processing, or starts anew, while the filters ring and the riders are up.
TEST (Motion, NothingIsLeftOfWhatSoundedBefore)
{
    auto riding = apart;
    riding.insert (riding.end(), { { "inAutoGain", 1.0 }, { "outAutoGain", 1.0 } });
    const auto expected = Player (512, riding).playSine (1000.0, 4800);

    for (const std::string pause : { "none", "processing", "activity" })
    {
        Player player (512, riding);
        player.playSine (40.0, 24000);

        if (pause == "processing")
        {
            player.instance.processor->setProcessing (false);
            player.instance.processor->setProcessing (true);
        }
        else if (pause == "activity")
        {
            player.instance.stop();
            player.instance.start (rate, 512);
        }

        EXPECT_EQ (player.peakInSilence (4800) == 0.0, pause != "none") << pause;
        EXPECT_EQ (player.playSine (1000.0, 4800) == expected, pause != "none") << pause;
    }
}

} // namespace
} // namespace kestreleq::test
