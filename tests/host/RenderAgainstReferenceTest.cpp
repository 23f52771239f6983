#include "tests/support/HostTool.h"
#include "tests/support/ReferenceEq.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

namespace kestreleq::test
{
namespace
{
using Setting = std::pair<std::string, float>;

struct Case
{
    const char* name;
    double rate;
    int block;
    int program;                     ///< -1: the module as it comes up
    std::vector<Setting> first = {}; ///< before seeded values of all other continuous parameters, unless empty
    std::vector<Setting> later = {}; ///< one after another while the file runs
};

void PrintTo (const Case& c, std::ostream* stream)
{
    *stream << c.name;
}

// clang-format off
const Case cases[] {
    { "Flat", 44100, 512, -1 },
    { "VocalPresence", 44100, 441, 1 }, { "BassBoost", 192000, 4096, 2 }, { "BrightAiry", 48000, 64, 3 },
    { "SmileyCurve", 88200, 1000, 4 }, { "LoFiCrunch", 48000, 512, 5 },
    { "ProgramZero", 96000, 256, 0, { { "link", 0 } }, { { "link", 1 } } },
    { "LanesApartAirTwoThree", 96000, 37, -1, { { "link", 0 }, { "airBand", 0.5f }, { "airBandR", 0.75f } },
        { { "sub", 0.875f }, { "airBandR", 0.125f }, { "2500hzR", 0.25f } } },
    { "MidSideAirFourZero", 44100, 4096, -1, { { "link", 0 }, { "msMode", 1 }, { "airBand", 1 }, { "airBandR", 0 } },
        { { "msMode", 0 }, { "msMode", 1 }, { "link", 1 } } },
    { "GainLinks", 176400, 2048, -1, { { "link", 0 }, { "inGainLink", 0 }, { "outGainLink", 0 } },
        { { "inGain1", 0.25f }, { "outGainLink", 1 }, { "link", 1 }, { "inGain2", 0.75f }, { "link", 0 } } },
    { "BothRiders", 48000, 480, -1, { { "link", 0 }, { "inAutoGain", 1 }, { "outAutoGain", 1 } },
        { { "inGain1", 0.25f }, { "laneABypass", 1 }, { "laneABypass", 0 }, { "inAutoGain", 0 } } },
    { "BreakMidSideRider", 96000, 2000, -1, { { "link", 0 }, { "breakMode", 1 }, { "msMode", 1 }, { "outAutoGain", 1 } },
        { { "650hz", 0.9375f }, { "bypass", 1 }, { "bypass", 0 } } },
    { "BypassReleased", 48000, 700, -1, { { "breakMode", 1 } },
        { { "bypass", 1 }, { "trim", 0.25f }, { "bypass", 0 }, { "trim", 0.75f } } },
};

// clang-format on

/** When a later setting acts: off the sample grid of every rate, and further apart than the longest block. */
double secondsOf (std::size_t later)
{
    return 0.1100071 * static_cast<double> (later + 1);
}

std::vector<Setting> settingsBefore (const Case& c, unsigned seed)
{
    auto settings = c.first;
    std::mt19937 random (seed);

    for (const auto& info : parameterTable)
    {
        const auto value = static_cast<float> (random() % 1025) / 1024.0f; // the same in text and in a float
        const auto isFixed = [&info] (const Setting& setting) { return setting.first == info.id; };

        if (! c.first.empty() && ! info.stepped && std::none_of (c.first.begin(), c.first.end(), isFixed))
            settings.emplace_back (info.id, value);
    }

    return settings;
}

juce::StringArray renderArguments (
    const Case& c, const std::vector<Setting>& before, const juce::String& in, const juce::String& out)
{
    juce::StringArray arguments { "render", KESTREL_MODULE_PATH, in, out, "--block", juce::String (c.block) };
    const auto text = [] (const Setting& setting)
    { return juce::String (setting.first) + "=" + juce::String (setting.second, 10); };

    if (c.program >= 0)
        arguments.addArray ({ "--program", juce::String (c.program) });

    for (const auto& setting : before)
        arguments.addArray ({ "--set", text (setting) });

    for (std::size_t i = 0; i < c.later.size(); ++i)
        arguments.addArray ({ "--at", juce::String (secondsOf (i), 7) + ":" + text (c.later[i]) });

    return arguments;
}

using RenderAgainstReference = testing::TestWithParam<Case>;
} // namespace

TEST_P (RenderAgainstReference, AgreesToAHundredDecibels)
{
    const auto& c = GetParam();
    const auto seed = static_cast<unsigned> (juce::String (c.name).hash());
    const auto before = settingsBefore (c, seed);
    const auto count = static_cast<int> (0.6 * c.rate);
    const auto left = musicalMix (seed, c.rate, count), right = whiteNoise (seed + 1, count, 0.4);
    const TemporaryFolder work;
    writeWav (work.path ("in.wav"), { left, right }, c.rate, 32);

    const auto arguments = renderArguments (c, before, work.path ("in.wav"), work.path ("out.wav"));
    SCOPED_TRACE (arguments.joinIntoString (" "));
    const auto run = runHost (arguments, HostStream::errors);
    ASSERT_EQ (run.exitCode, 0) << run.text;
    const auto rendered = readWav (work.path ("out.wav")).channels;
    ASSERT_EQ (rendered.size(), 2u);

    ReferenceParameters parameters;

    if (c.program >= 0)
        parameters.selectProgram (c.program);

    for (const auto& [id, value] : before)
        parameters.set (id, value);

    ReferenceEq reference (c.rate);
    auto first = widened (left), second = widened (right);
    std::size_t next = 0;

    for (auto start = 0; start < count; start += c.block)
    {
        for (; next < c.later.size() && start >= secondsOf (next) * c.rate; ++next)
            parameters.set (c.later[next].first, c.later[next].second);

        reference.process (parameters, first.data() + start, second.data() + start, std::min (c.block, count - start));
    }

    EXPECT_EQ (next, c.later.size());
    EXPECT_LT (differenceDb (rendered[0], first), -100.0);
    EXPECT_LT (differenceDb (rendered[1], second), -100.0);
}

INSTANTIATE_TEST_SUITE_P (Cases, RenderAgainstReference, testing::ValuesIn (cases),
    [] (const auto& instance) { return std::string (instance.param.name); });
} // namespace kestreleq::test
