#include "tests/support/HostTool.h"
#include "engine/parameters/ParameterTable.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

const juce::String module = KESTREL_MODULE_PATH;

HostRun render (const TemporaryFolder& work, const juce::String& out, const juce::StringArray& options)
{
    juce::StringArray arguments { "render", module, work.path ("in.wav"), work.path (out) };
    arguments.addArray (options);
    return runHost (arguments, HostStream::errors);
}

TEST (HostTool, TellsWhatTheModuleIs)
{
    const auto run = runHost ({ "info", module, "--json" }, HostStream::output);
    ASSERT_EQ (run.exitCode, 0);
    const auto info = juce::JSON::parse (run.text);
    EXPECT_EQ (info["name"], "Kestrel EQ");
    EXPECT_EQ (info["vendor"], "Quillon");
    EXPECT_EQ (info["version"], "1.1.0");
    EXPECT_EQ (static_cast<int> (info["latencySamples"]), 0);

    for (const auto& [list, name] : { std::pair { "inputs", "Input" }, std::pair { "outputs", "Output" } })
    {
        ASSERT_EQ (info[list].size(), 1);
        EXPECT_EQ (info[list][0]["name"], name);
        EXPECT_EQ (static_cast<int> (info[list][0]["channels"]), 2);
    }

    const auto parameters = info["parameters"];

    // What projects and automation of every release refer to: in full, and never to be changed.
    const auto expected = juce::StringArray::fromLines (R"(sub|SUB|0.5|0.0|0
40hz|40|0.5|0.0|0
160hz|160|0.5|0.0|0
650hz|650|0.5|0.0|0
2500hz|2.5K|0.5|0.0|0
airGain|AIR GAIN|0.0|0.0|0
airBand|AIR BAND|0.0|2.5K|0
subR|SUB R/S|0.5|0.0|0
40hzR|40 R/S|0.5|0.0|0
160hzR|160 R/S|0.5|0.0|0
650hzR|650 R/S|0.5|0.0|0
2500hzR|2.5K R/S|0.5|0.0|0
airGainR|AIR GAIN R/S|0.0|0.0|0
airBandR|AIR BAND R/S|0.0|2.5K|0
trim|TRIM|0.5|0.0 dB|0
bypass|BYPASS|0.0|Active|1
breakMode|BREAK|0.0|Clean|1
link|LINK|1.0|On|1
msMode|M/S MODE|0.0|Off|1
inAutoGain|Input Auto Gain|0.0|Off|1
outAutoGain|Output Auto Gain|0.0|Off|1
inGainLink|Input Gain Link|1.0|On|1
inGain1|Input Gain 1|0.5|0.0 dB|0
inGain2|Input Gain 2|0.5|0.0 dB|0
outGainLink|Output Gain Link|1.0|On|1
outGain1|Output Gain 1|0.5|0.0 dB|0
outGain2|Output Gain 2|0.5|0.0 dB|0
laneABypass|Lane 1 Bypass|0.0|Active|1
laneBBypass|Lane 2 Bypass|0.0|Active|1)");
    ASSERT_EQ (parameters.size(), expected.size());

    for (int i = 0; i < parameters.size(); ++i)
    {
        const auto& parameter = parameters[i];
        juce::StringArray fields;
        for (const auto* field : { "id", "name", "default", "defaultText", "stepped" })
            fields.add (parameter[field].toString());
        EXPECT_EQ (fields.joinIntoString ("|"), expected[i]);
        EXPECT_EQ (static_cast<int> (parameter["index"]), i);
    }

    const auto bench = runHost ({ "bench", module, "--seconds", "0.2", "--block", "64", "--json" }, HostStream::output);
    EXPECT_EQ (bench.exitCode, 0);
    EXPECT_GT (static_cast<double> (juce::JSON::parse (bench.text)["nsPerStereoSample"]), 0.0);
}

TEST (HostTool, RendersEveryKindOfWavAndTheSameEachTime)
{
    const TemporaryFolder work;
    const auto left = whiteNoise (1, 1001, 0.5), right = whiteNoise (2, 1001, 0.5);

    for (const int bits : { 16, 24, 32 })
    {
        for (const int channels : { 1, 2 })
        {
            const auto rate = bits == 24 ? 44100.0 : 96000.0;
            const std::vector<std::vector<float>> both { left, right };
            writeWav (work.path ("in.wav"), { both.begin(), both.begin() + channels }, rate, bits);
            ASSERT_EQ (render (work, "a.wav", { "--set", "bypass=1", "--block", "512" }).exitCode, 0);
            ASSERT_EQ (render (work, "b.wav", { "--set", "bypass=1", "--block", "7" }).exitCode, 0);
            const auto out = readWav (work.path ("a.wav"));
            EXPECT_TRUE (out.isFloat && out.bits == 32 && out.sampleRate == rate && out.channels.size() == 2);
            EXPECT_LT (differenceDb (out.channels[0], left), bits == 16 ? -80.0 : -130.0);
            EXPECT_LT (differenceDb (out.channels[1], channels == 1 ? left : right), bits == 16 ? -80.0 : -130.0);
            EXPECT_TRUE (juce::File (work.path ("a.wav")).hasIdenticalContentTo (work.path ("b.wav")));
            juce::MemoryBlock bytes;
            juce::File (work.path ("a.wav")).loadFileAsData (bytes);
            EXPECT_EQ (juce::ByteOrder::littleEndianInt (&bytes[28]), 8.0 * rate) << "bytes a second";
        }
    }

    // Floats behind the long kind of header, and before it a chunk of odd length.
    juce::FileOutputStream file (work.path ("in.wav"));
    file.setPosition (0);
    file.truncate();
    file << "RIFF" << juce::MemoryBlock (4, true) << "WAVEnote" << '\3' << juce::MemoryBlock (3, true) << "abc" << '\0'
         << "fmt ";
    file.writeInt (40);

    for (const int number : { 0xfffe, 2, 48000, 0, 48000 * 8 % 65536, 48000 * 8 / 65536, 8, 32, 22, 32, 3, 0, 3 })
        file.writeShort (static_cast<short> (number));

    file << juce::MemoryBlock (14, true) << "data";
    file.writeInt (8 * 1001);

    for (std::size_t i = 0; i < left.size(); ++i)
    {
        file.writeFloat (left[i]);
        file.writeFloat (right[i]);
    }

    file.flush();
    ASSERT_EQ (render (work, "a.wav", { "--set", "bypass=1" }).exitCode, 0);
    EXPECT_EQ (readWav (work.path ("a.wav")).channels, (std::vector<std::vector<float>> { left, right }));
}

TEST (HostTool, KeepsTheOrderOfWhatIsSet)
{
    const TemporaryFolder work;
    const auto steady = std::vector<float> (4800, 0.1f);
    writeWav (work.path ("in.wav"), { steady, steady }, 48000.0, 32);
    const auto play = [&] (juce::StringArray options)
    {
        options.addArray ({ "--block", "480" });
        EXPECT_EQ (render (work, "out.wav", options).exitCode, 0);
        return readWav (work.path ("out.wav")).channels;
    };

    // Linked, so the last of the two holds for both lanes; unlinked at the end, so that each lane shows its own.
    const auto high = play ({ "--set", "inGain1=0.2", "--set", "inGain2=0.8", "--set", "link=0" });
    const auto low = play ({ "--set", "inGain2=0.8", "--set", "inGain1=0.2", "--set", "link=0" });
    const auto ratio = 20.0 * std::log10 (high[0].back() / low[0].back());
    EXPECT_NEAR (ratio, 0.6 * 18.0, 1e-3);
    EXPECT_EQ (high[0], high[1]);

    // At 0.03 s the fourth block starts; 0.031 s waits for the fifth. Same time: the order given. The trim takes its
    // block to go up, the bypass the next one.
    const auto timed = play ({ "--at", "0.03:trim=0", "--at", "0.03:trim=1", "--at", "0.031:bypass=1" });
    EXPECT_NEAR (timed[0][1439], 0.1f, 1e-3f);
    EXPECT_NEAR (timed[0][1679], 0.1f * 2.49f, 1e-2f);
    EXPECT_NEAR (timed[0][1920], 0.1f * 3.98f, 1e-2f);
    EXPECT_EQ (timed[0][2400], 0.1f);
}

TEST (HostTool, ASavedStateSoundsTheSameInAFreshProcess)
{
    const TemporaryFolder work;
    writeWav (work.path ("in.wav"), { whiteNoise (1, 48000, 0.5), whiteNoise (2, 48000, 0.5) }, 48000.0, 32);
    const auto same = [&] (const char* extension)
    { return juce::File (work.path ("a") + extension).hasIdenticalContentTo (work.path ("b") + extension); };

    const juce::StringArray odd { "--program", "5", "--set", "link=0", "--set", "subR=0.9", "--set", "msMode=1",
        "--set", "airGainR=0.37", "--save-state", work.path ("a.state") };
    EXPECT_EQ (render (work, "a.wav", odd).exitCode, 0);
    const juce::StringArray again { "--state", work.path ("a.state"), "--save-state", work.path ("b.state") };
    EXPECT_EQ (render (work, "b.wav", again).exitCode, 0);
    EXPECT_TRUE (same (".wav"));
    EXPECT_TRUE (same (".state"));

    juce::MemoryBlock state;
    juce::File (work.path ("a.state")).loadFileAsData (state);
    juce::File (work.path ("half.state")).replaceWithData (state.getData(), state.getSize() / 2);

    for (const auto& refused :
        { work.path ("none.state"), work.path ("half.state"), work.path ("in.wav"), juce::String ("/dev/zero") })
    {
        const auto run = render (work, "c.wav", { "--state", refused });
        EXPECT_EQ (run.exitCode, 1) << refused;
        EXPECT_TRUE (run.text.contains (refused)) << run.text;
        EXPECT_FALSE (juce::File (work.path ("c.wav")).exists());
    }
}

TEST (HostTool, RefusesWithOneLineAndLeavesNothingBehind)
{
    const TemporaryFolder work;
    const juce::File good (work.path ("good.wav"));
    writeWav (good, { whiteNoise (1, 1000, 0.5), whiteNoise (2, 1000, 0.5) }, 48000.0, 16);
    writeWav (work.path ("three.wav"), { { 0.1f }, { 0.2f }, { 0.3f } }, 48000.0, 16);
    juce::File (work.path ("empty.wav")).create();
    juce::File (work.path ("text.wav")).replaceWithText ("nothing that one could listen to");
    juce::MemoryBlock bytes;
    good.loadFileAsData (bytes);
    juce::File (work.path ("truncated.wav")).replaceWithData (bytes.getData(), bytes.getSize() - 100);
    juce::File (work.path ("header.wav")).replaceWithData (bytes.getData(), 30);
    auto cut = bytes;
    cut[cut.getSize() - 4004] -= 2; // the length of the audio, to within a sample
    juce::File (work.path ("cut.wav")).replaceWithData (cut.getData(), cut.getSize());
    const auto filesBefore = work.folder.getNumberOfChildFiles (juce::File::findFilesAndDirectories);

    const auto in = good.getFullPathName();
    const auto out = work.path ("out.wav");
    const auto expectRefusal = [&] (const juce::StringArray& arguments, int exitCode, const juce::String& named)
    {
        const auto run = runHost (arguments, HostStream::errors);
        SCOPED_TRACE (arguments.joinIntoString (" ") + "\n" + run.text);
        EXPECT_EQ (run.exitCode, exitCode);
        EXPECT_TRUE (run.text.contains (named));
        EXPECT_TRUE (exitCode != 1 || run.text.indexOfChar ('\n') == run.text.length() - 1);
        EXPECT_EQ (work.folder.getNumberOfChildFiles (juce::File::findFilesAndDirectories), filesBefore);
    };

    for (const auto* name :
        { "missing.wav", "three.wav", "empty.wav", "text.wav", "truncated.wav", "header.wav", "cut.wav" })
        expectRefusal ({ "render", module, work.path (name), out }, 1, name);

    for (const auto* setting : { "nope=0.5", "sub=1.5", "sub=-0.1", "sub=nan", "sub=loud" })
        expectRefusal ({ "render", module, in, out, "--set", setting }, 1,
            juce::String (setting).upToFirstOccurrenceOf ("=", false, false));

    expectRefusal ({ "render", module, in, out, "--at", "0.1:nope=0" }, 1, "nope");
    expectRefusal ({ "render", module, in, out, "--program", "6" }, 1, "6");
    expectRefusal ({ "render", in, in, out }, 1, "good.wav");
    expectRefusal ({ "info", work.path ("none.vst3") }, 1, "none.vst3");
    expectRefusal ({ "render", module, in, work.path ("no/such/folder.wav") }, 1, "folder.wav");
    expectRefusal ({ "render", module, in, in }, 1, "good.wav");
    expectRefusal ({ "render", module, in, out, "--save-state", in }, 1, "good.wav");
    expectRefusal ({ "render", module, in, out, "--save-state", out }, 1, "out.wav");
    expectRefusal ({ "open", work.path ("none.vst3") }, 1, "none.vst3");

    for (const auto& wrong : std::vector<juce::StringArray> { {}, { "sing" }, { "info" }, { "render", module, in },
             { "render", module, in, out, "--block", "0" }, { "render", module, in, out, "--block", "x" },
             { "render", module, in, out, "--block", "64x" }, { "render", module, in, out, "--what" },
             { "render", module, in, out, "--set", "sub" }, { "bench", module, "--rate", "1" },
             { "open", module, "--seconds", "-1" } })
        expectRefusal (wrong, 2, "usage");

    EXPECT_EQ (runHost ({ "--help" }, HostStream::output).exitCode, 0);
    juce::MemoryBlock after;
    good.loadFileAsData (after);
    EXPECT_EQ (after, bytes);
}

} // namespace
} // namespace kestreleq::test
