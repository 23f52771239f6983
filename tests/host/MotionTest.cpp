#include "tests/support/MotionMeasures.h"
#include "tests/support/Signals.h"
#include "tests/support/Vst3Module.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <string>

namespace kestreleq::test
{
namespace
{

constexpr double rate = 48000.0;

using Channels = std::array<std::vector<float>, 2>;

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

// A value that a host draws over a second, block by block, leaves no zipper beside the tone.
TEST (Motion, SweptValuesLeaveNoProducts)
{
    constexpr std::pair<const char*, double> sweeps[] { { "sub", 100 }, { "40hz", 100 }, { "160hz", 300 },
        { "650hz", 1000 }, { "2500hz", 3000 }, { "airGain", 10000 }, { "trim", 1000 }, { "inGain1", 1000 },
        { "outGain1", 1000 } };

    for (const int block : { 64, 512, 2048 })
        for (const auto& [id, frequency] : sweeps)
        {
            Player player (block, { { "airBand", 0.5 } });
            const auto output = player.playSine (frequency, 65536,
                [&player, name = id] (int start) {
                    player.instance.set ({ { name, std::clamp ((start - 8192) / rate, 0.0, 1.0) } });
                });
            expectBelow (highestProductDb (output[0], frequency, rate), -70.0,
                id + (" swept, blocks of " + std::to_string (block)));
        }

    // The measure sees steps of 20 dB a second in blocks of 64.
    auto stepped = sine (1000.0, rate, 65536, 0.1);

    for (std::size_t n = 0; n < stepped.size(); ++n)
        stepped[n] *= static_cast<float> (std::pow (10.0, static_cast<double> (n / 64 * 64) / rate));

    EXPECT_GT (highestProductDb (stepped, 1000.0, rate), -70.0);
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
        player.playSine (100.0, 48000);
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
        return std::max (aboveSixKilohertzDb (output[0], rate, Player::levels[0]),
            aboveSixKilohertzDb (output[1], rate, Player::levels[1]));
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
    static constexpr int stretch = 9600;
    Channels output;
};

TEST (Motion, SwitchesDoNotClick)
{
    for (const int block : { 64, 512, 2048 })
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

// What the test before measures shows a switch without a fade.
TEST (Motion, TheMeasuresSeeAStep)
{
    auto stepped = sine (100.0, rate, 9600, 0.5);

    for (std::size_t n = 4920; n < stepped.size(); ++n)
        stepped[n] *= 0.25f;

    EXPECT_GT (aboveSixKilohertzDb (stepped, rate, 0.5), -45.0);
    EXPECT_GT (largestStep (stepped) / largestStep (std::span (stepped).first (4000)), 3.0);
    EXPECT_LT (aboveSixKilohertzDb (std::span (stepped).first (4000), rate, 0.5), -85.0);
}

TEST (Motion, NothingIsLeftOfWhatSoundedBefore)
{
    // A lane's bypass, released when the tone is long over; without it the filters ring.
    for (const auto bypass : { 1.0, 0.0 })
    {
        Player player (512, apart);
        player.playSine (40.0, 24000);
        player.instance.set ({ { "laneABypass", bypass }, { "laneBBypass", bypass } });
        player.playSine (40.0, 4800);
        player.peakInSilence (1024);
        player.instance.set ({ { "laneABypass", 0.0 }, { "laneBBypass", 0.0 } });
        EXPECT_EQ (player.peakInSilence (24000) == 0.0, bypass > 0.5);
    }

    // A host that stops processing while the filters ring and the riders are up.
    auto riding = apart;
    riding.insert (riding.end(), { { "inAutoGain", 1.0 }, { "outAutoGain", 1.0 } });
    Player fresh (512, riding);
    const auto expected = fresh.playSine (1000.0, 4800);

    for (const bool stops : { true, false })
    {
        Player player (512, riding);
        player.playSine (40.0, 24000);

        if (stops)
        {
            player.instance.processor->setProcessing (false);
            player.instance.processor->setProcessing (true);
        }

        EXPECT_EQ (player.peakInSilence (4800) == 0.0, stops);
        EXPECT_EQ (player.playSine (1000.0, 4800) == expected, stops);
    }
}

} // namespace
} // namespace kestreleq::test
