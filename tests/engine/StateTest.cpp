#include "engine/PluginState.h"
#include "tests/support/ProcessorRig.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace kestreleq::test
{
namespace
{

/** What the audio thread reads. */
float heard (ProcessorRig& rig, const char* id)
{
    return rig.processor.getCore().getTree().getRawParameterValue (id)->load();
}

TEST (State, ComesBackBitByBit)
{
    for (unsigned seed = 0; seed < 8; ++seed)
    {
        ProcessorRig first, second;
        first.setRandomly (seed);
        second.setRandomly (seed + 100);
        first.processor.setEditorScaleStep (static_cast<int> (seed) - 1);

        // A change in the last bit is a change.
        first.set ("sub", std::nextafter (0.5f, 1.0f));
        second.set ("sub", 0.5f);

        const auto block = first.save();
        second.restore (block);

        for (const auto& info : parameterTable)
        {
            EXPECT_EQ (heard (second, info.id), heard (first, info.id)) << info.id;
            EXPECT_EQ (second.get (info.id), first.get (info.id)) << info.id;
        }

        EXPECT_EQ (second.processor.getEditorScaleStep(), first.processor.getEditorScaleStep());
        EXPECT_EQ (second.save(), block);
    }
}

TEST (State, KeepsLinkedValuesAndProgramAsStored)
{
    ProcessorRig rig;
    rig.processor.setCurrentProgram (3);
    {
        const ParameterLinks::ScopedPause pause (rig.processor.getCore().getLinks());
        rig.set ("subR", 0.125f);
    }

    const auto block = rig.save();
    ProcessorRig other;
    const auto counter = other.processor.getStateChangeCounter();
    other.restore (block);
    EXPECT_EQ (other.get ("link"), 1.0f);
    EXPECT_EQ (other.get ("subR"), 0.125f);
    EXPECT_EQ (other.processor.getCurrentProgram(), 3);
    EXPECT_NE (other.processor.getStateChangeCounter(), counter);

    // Linking goes on as before.
    other.set ("sub", 0.75f);
    EXPECT_EQ (other.get ("subR"), 0.75f);
}

TEST (State, TakesOnlyWhatItCanHold)
{
    ProcessorRig rig;
    rig.setRandomly (1);
    rig.restore (wrapped (R"(<?xml version="1.0"?><Parameters currentProgram="6"><PARAM id="sub" value="0.25"/>
        <PARAM id="sub" value="0.75"/><PARAM id="40hz" value="nan"/><PARAM id="160hz" value="1e999"/>
        <PARAM id="650hz" value="7"/><PARAM id="2500hz" value="-3"/><PARAM id="bypass" value="0.3"/>
        <PARAM id="breakMode" value="0.6"/><PARAM id="nobody" value="1"/><OTHER id="trim" value="1"/>
        <PARAM id="outGain1"/></Parameters>)"));

    for (const auto& [id, value] : { std::pair { "sub", 0.75f }, { "40hz", 0.0f }, { "160hz", 0.0f }, { "650hz", 1.0f },
             { "2500hz", 0.0f }, { "bypass", 0.0f }, { "breakMode", 1.0f }, { "trim", 0.5f }, { "outGain1", 0.5f },
             { "subR", 0.5f }, { "link", 1.0f } })
        EXPECT_EQ (heard (rig, id), value) << id;

    EXPECT_EQ (rig.processor.getCurrentProgram(), 0);
    EXPECT_FALSE (rig.processor.getPreset().isCustom);
    rig.restore (wrapped (R"(<Parameters currentProgram="-3"/>)"));
    EXPECT_TRUE (rig.processor.getPreset().isCustom);
    EXPECT_EQ (rig.processor.getCurrentProgram(), 0);
    EXPECT_EQ (rig.processor.getEditorScaleStep(), -1);
    const auto text = [&]
    {
        const auto block = rig.save();
        return juce::AudioProcessor::getXmlFromBinary (block.getData(), static_cast<int> (block.getSize()))->toString();
    };
    EXPECT_FALSE (text().contains ("nobody"));
    rig.set ("trim", std::numeric_limits<float>::quiet_NaN()); // some host's
    EXPECT_EQ (heard (rig, "trim"), 0.0f);
    EXPECT_FALSE (text().contains ("nan"));

    // What a state has left out is in the next one that is saved, values of 0 too.
    const auto saved = rig.save();
    rig.restore (saved);
    EXPECT_EQ (rig.save(), saved);
}

TEST (State, RefusesWhatIsHostileOrNoState)
{
    ProcessorRig rig;
    rig.setRandomly (2);
    const auto before = rig.save();
    rig.processor.setStateInformation (nullptr, 100);
    rig.processor.setStateInformation (before.getData(), 0);
    rig.processor.setStateInformation (before.getData(), -5);

    for (int size = 1; size < static_cast<int> (before.getSize()) - 2; ++size)
        rig.processor.setStateInformation (before.getData(), size);

    // HarmlessXml has more of these; here, one that breaks the parser and one that breaks what takes the values after
    // it.
    for (const auto& text : std::vector<std::string> { "", "no xml", "<Else sub=\"1\"/>",
             "<Parameters><PARAM id=\"sub\" value=\"&#x\"/></Parameters>",
             "<Parameters base64:value=\"-1.AAAA\"><PARAM id=\"sub\" value=\"0\"/></Parameters>" })
    {
        rig.restore (wrapped (text));
        EXPECT_FALSE (readStateText (text).has_value()) << text;
    }

    // A header that makes the text end anywhere, in a quotation too. (What it cuts off besides the end is not ours.)
    for (int length = 0; length < static_cast<int> (before.getSize()) - 40; ++length)
    {
        auto cut = before;
        std::memcpy (static_cast<char*> (cut.getData()) + 4, &length, sizeof (length));
        rig.restore (cut);
    }

    EXPECT_EQ (rig.save(), before);

    EXPECT_TRUE (readStateText ("  \n<Parameters><PARAM id=\"sub\" value=\"1\"/></Parameters>\n").has_value());
    EXPECT_FALSE (readStateText ("hello").has_value());
}

TEST (State, OfRelease110Restores)
{
    juce::MemoryBlock block;
    ASSERT_TRUE (juce::File (KESTREL_TEST_DATA "/state-1.1.0.bin").loadFileAsData (block));
    ProcessorRig rig;
    rig.restore (block);

    for (const auto& [id, value] : { std::pair { "sub", 0.7f }, { "subR", 0.3f }, { "40hz", 0.6f }, { "airGain", 0.4f },
             { "airGainR", 0.9f }, { "airBand", 0.5f }, { "airBandR", 0.75f }, { "trim", 0.456789f },
             { "breakMode", 1.0f }, { "link", 0.0f }, { "msMode", 1.0f }, { "inGainLink", 0.0f }, { "inGain1", 0.5f },
             { "inGain2", 0.61f }, { "outGain1", 0.4f }, { "outGain2", 0.5f } })
        EXPECT_EQ (heard (rig, id), value) << id;

    EXPECT_EQ (rig.processor.getCurrentProgram(), 4);
}

} // namespace
} // namespace kestreleq::test
