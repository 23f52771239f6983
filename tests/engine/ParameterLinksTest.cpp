#include "engine/ParameterLinks.h"
#include "tests/support/ProcessorRig.h"

#include "engine/parameters/FactoryPrograms.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <optional>
#include <string>
#include <vector>

namespace kestreleq::test
{
namespace
{

/** Writes down what the host is told: "id begin", "id value", "id end". */
struct GestureLog final : juce::AudioProcessorListener
{
    explicit GestureLog (juce::AudioProcessor& p)
        : processor (p)
    {
        processor.addListener (this);
    }

    ~GestureLog() override { processor.removeListener (this); }

    void audioProcessorParameterChanged (juce::AudioProcessor*, int index, float) override { note (index, "value"); }

    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index) override
    {
        note (index, "begin");
    }

    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index) override { note (index, "end"); }

    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails& details) override
    {
        if (details.programChanged)
            entries.push_back ("program");
    }

    void note (int index, const char* what)
    {
        entries.push_back (std::string (parameterTable[static_cast<std::size_t> (index)].id) + " " + what);
    }

    juce::AudioProcessor& processor;
    std::vector<std::string> entries;
};

using Entries = std::vector<std::string>;

TEST (ParameterLinks, CopyEveryPairInBothDirections)
{
    ProcessorRig rig;
    auto value = 0.0f;

    for (const auto& [first, second] : linkedPairs)
    {
        const auto* a = infoOf (first).id;
        const auto* b = infoOf (second).id;
        const bool stepped = infoOf (first).stepped;

        rig.set (a, stepped ? 1.0f : value += 0.03f);
        EXPECT_EQ (rig.get (b), rig.get (a)) << a;
        rig.set (b, stepped ? 0.0f : value += 0.03f);
        EXPECT_EQ (rig.get (a), rig.get (b)) << b;
    }
}

TEST (ParameterLinks, CopyAsOneGestureAndNoFurther)
{
    ProcessorRig rig;
    GestureLog log (rig.processor);
    rig.set ("sub", 0.7f);
    EXPECT_EQ (log.entries, (Entries { "subR begin", "subR value", "subR end", "sub value" }));

    rig.set ("link", 0.0f);
    log.entries.clear();
    rig.set ("subR", 0.2f);
    rig.set ("trim", 0.4f);
    EXPECT_EQ (log.entries, (Entries { "subR value", "trim value" }));
    EXPECT_EQ (rig.get ("sub"), 0.7f);
}

TEST (ParameterLinks, SwitchingOnTakesLaneAAndSwitchingOffNothing)
{
    ProcessorRig rig;
    rig.set ("link", 0.0f);
    rig.set ("inGainLink", 0.0f);
    rig.set ("outGainLink", 0.0f);

    for (const auto& [first, second] : linkedPairs)
    {
        rig.set (infoOf (first).id, 0.0f);
        rig.set (infoOf (second).id, 1.0f);
    }

    rig.set ("inGainLink", 1.0f);
    EXPECT_EQ (rig.get ("inGain2"), 0.0f);
    EXPECT_EQ (rig.get ("outGain2"), 1.0f);
    rig.set ("outGain1", 0.25f);
    rig.set ("outGainLink", 1.0f);
    EXPECT_EQ (rig.get ("outGain2"), 0.25f);
    EXPECT_EQ (rig.get ("subR"), 1.0f);

    rig.set ("link", 1.0f);
    for (const auto& [first, second] : linkedPairs)
        EXPECT_EQ (rig.get (infoOf (second).id), rig.get (infoOf (first).id)) << infoOf (second).id;

    {
        const ParameterLinks::ScopedPause asStored (rig.processor.getCore().getLinks());
        rig.set ("subR", 0.3f);
    }
    rig.set ("link", 0.0f);
    EXPECT_EQ (rig.get ("subR"), 0.3f);
}

TEST (ParameterLinks, AGainLinkWorksAloneAndTheLaneLinkWithoutIt)
{
    ProcessorRig rig;
    rig.set ("link", 0.0f);
    rig.set ("inGain2", 0.9f);
    EXPECT_EQ (rig.get ("inGain1"), 0.9f);
    rig.set ("inGainLink", 0.0f);
    rig.set ("inGain2", 0.3f);
    EXPECT_EQ (rig.get ("inGain1"), 0.9f);
    rig.set ("link", 1.0f);
    rig.set ("inGain2", 0.6f);
    EXPECT_EQ (rig.get ("inGain1"), 0.6f);
}

TEST (ParameterLinks, PausesOfTwoThreadsMayEndInAnyOrder)
{
    ProcessorRig rig;
    ParameterLinks& links = rig.processor.getCore().getLinks();
    std::optional<ParameterLinks::ScopedPause> first (links);
    std::optional<ParameterLinks::ScopedPause> second (links);

    first.reset();
    rig.set ("sub", 0.9f);
    EXPECT_EQ (rig.get ("subR"), 0.5f);
    second.reset();
    rig.set ("sub", 0.8f);
    EXPECT_EQ (rig.get ("subR"), 0.8f);
}

TEST (ParameterLinks, TwoThreadsAtBothEndsOfALinkNeitherWaitForEachOtherNorPart)
{
    ProcessorRig rig;
    const auto move = [&rig] (const char* id, int seed)
    {
        juce::Random random (seed);

        for (int i = 0; i < 40000; ++i)
            rig.set (id, random.nextFloat());
    };
    auto other = std::async (std::launch::async, move, "subR", 1);
    auto one = std::async (std::launch::async, move, "sub", 2);

    // Threads that wait for each other can never be joined.
    for (auto* thread : { &one, &other })
        if (thread->wait_for (std::chrono::seconds (60)) != std::future_status::ready)
            std::abort();

    EXPECT_EQ (rig.get ("sub"), rig.get ("subR"));
}

TEST (Programs, SetEveryParameterInOrderThroughGestures)
{
    ProcessorRig rig;
    rig.set ("link", 0.0f);
    rig.set ("subR", 0.1f);
    rig.set ("inAutoGain", 1.0f);

    Entries expected;
    for (const auto& info : parameterTable)
        for (const auto* what : { " begin", " value", " end" })
            expected.push_back (info.id + std::string (what));

    GestureLog log (rig.processor);
    rig.processor.setCurrentProgram (3);

    // Copies between the lanes stand in between; the program's own gestures must all be there, in host order.
    std::size_t found = 0;
    for (const auto& entry : log.entries)
        found += found < expected.size() && entry == expected[found] ? 1u : 0u;

    EXPECT_EQ (found, expected.size());
    EXPECT_EQ (log.entries.back(), "program");
    EXPECT_EQ (rig.processor.getCurrentProgram(), 3);
    EXPECT_EQ (rig.processor.getProgramName (3).toStdString(), "Bright & Airy");
    EXPECT_EQ (
        rig.processor.getCore().getUndoManager().getUndoDescription().toStdString(), "Load preset: Bright & Airy");

    const auto values = valuesOf (factoryPrograms[3]);
    for (std::size_t i = 0; i < numParameters; ++i)
        EXPECT_EQ (rig.get (parameterTable[i].id), values[i]) << parameterTable[i].id;

    for (const int unknown : { -1, 6, 1000 })
    {
        rig.processor.setCurrentProgram (unknown);
        EXPECT_EQ (rig.processor.getCurrentProgram(), 3);
        EXPECT_TRUE (rig.processor.getProgramName (unknown).isEmpty());
    }
}

} // namespace
} // namespace kestreleq::test
