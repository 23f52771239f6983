#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

namespace kestreleq::test
{
namespace
{

struct Golden
{
    const char* name;
    int program; // before the settings
    std::vector<std::pair<const char*, float>> settings;
};

void PrintTo (const Golden& golden, std::ostream* stream)
{
    *stream << golden.name;
}

// clang-format off
const Golden goldens[] {
    { "flat", 0, {} }, { "vocal-presence", 1, {} }, { "bass-boost", 2, {} }, { "bright-and-airy", 3, {} },
    { "smiley-curve", 4, {} }, { "lo-fi-crunch", 5, {} },
    { "break-driven", 4, { { "breakMode", 1 }, { "sub", 1 }, { "160hz", 0.9f }, { "2500hz", 0.95f }, { "airGain", 1 } } },
    { "mid-side", 1, { { "link", 0 }, { "msMode", 1 }, { "subR", 0.9f }, { "650hzR", 0.1f }, { "airBandR", 1 } } },
    { "riders", 3, { { "inAutoGain", 1 }, { "outAutoGain", 1 }, { "link", 0 }, { "40hzR", 1 } } },
    { "gains", 2, { { "inGainLink", 0 }, { "outGainLink", 0 }, { "link", 0 }, { "inGain1", 0.9f }, { "outGain2", 0.2f },
        { "laneABypass", 0 }, { "trim", 0.7f } } },
};
// clang-format on

constexpr double rate = 48000.0;
constexpr int length = 12000;

// Enough to show any change; the whole would be eight times as large.
constexpr std::size_t stored = 8;

/** A quarter of a second, both channels after each other. */
std::vector<float> render (const Golden& golden)
{
    ProcessorRig rig (rate, 480);
    rig.processor.setCurrentProgram (golden.program);

    for (const auto& [id, value] : golden.settings)
        rig.set (id, value);

    Stereo audio { musicalMix (1, rate, length), whiteNoise (2, length, 0.3) };
    rig.process (audio, 480);
    std::vector<float> result;

    for (const auto& channel : audio)
        for (std::size_t i = 0; i < channel.size(); i += stored)
            result.push_back (channel[i]);

    return result;
}

constexpr double limit = -120.0; // dB below the stored peak

using GoldenAudio = testing::TestWithParam<Golden>;

} // namespace

TEST_P (GoldenAudio, SoundsAsStored)
{
    const auto now = render (GetParam());
    const auto file = juce::File (KESTREL_TEST_DATA "/golden").getChildFile (juce::String (GetParam().name) + ".bin");

    if (std::getenv ("KESTREL_STORE_GOLDEN") != nullptr)
    {
        ASSERT_TRUE (file.replaceWithData (now.data(), now.size() * sizeof (float)));
    }

    juce::MemoryBlock bytes;
    file.loadFileAsData (bytes);
    std::vector<float> golden (bytes.getSize() / sizeof (float));
    bytes.copyTo (golden.data(), 0, golden.size() * sizeof (float));
    ASSERT_EQ (golden.size(), now.size()) << "nothing stored; KESTREL_STORE_GOLDEN=1 stores what is rendered now";
    EXPECT_LT (differenceDb (now, golden), limit)
        << GetParam().name << " has changed; if it must, store it anew with KESTREL_STORE_GOLDEN=1";

    // The comparison must be able to fail: one sample off by a little more than the limit.
    auto off = golden;
    off[1000] += static_cast<float> (peak (golden)) * 2e-6f;
    EXPECT_GT (differenceDb (off, golden), limit);
}

INSTANTIATE_TEST_SUITE_P (Settings, GoldenAudio, testing::ValuesIn (goldens),
    [] (const auto& instance) { return juce::String (instance.param.name).replaceCharacter ('-', '_').toStdString(); });

} // namespace kestreleq::test
