#include "tests/support/MessagePump.h"
#include "tests/support/ProcessorRig.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace kestreleq::test
{
namespace
{

using Values = std::array<float, numParameters>;

struct HistoryRig : ProcessorRig
{
    EditHistory& history() { return processor.getCore().getHistory(); }

    juce::UndoManager& manager() { return processor.getCore().getUndoManager(); }

    void begin (const char* id)
    {
        history().beginStep();
        parameter (id).beginChangeGesture();
    }

    void end (const char* id)
    {
        parameter (id).endChangeGesture();
        history().endStep();
    }

    /** As an editor's control does it, in as many values as a hand makes. */
    void drag (const char* id, float to, int milliseconds = 0)
    {
        begin (id);
        for (int i = 1; i <= 20; ++i)
        {
            set (id, get (id) + (to - get (id)) * static_cast<float> (i) / 20.0f);
            pumpMessages (milliseconds / 20);
        }
        set (id, to);
        end (id);
    }

    /** What the audio thread reads; the parameters must agree. */
    Values heard()
    {
        Values values {};
        for (std::size_t i = 0; i < numParameters; ++i)
        {
            values[i] = processor.getCore().getTree().getRawParameterValue (parameterTable[i].id)->load();
            EXPECT_EQ (get (parameterTable[i].id), values[i]) << parameterTable[i].id;
        }
        return values;
    }
};

TEST (EditHistory, AGestureIsOneStepHoweverTheTreeIsFlushed)
{
    for (const int milliseconds : { 0, 300 }) // with and without flushes on the way
    {
        HistoryRig rig;
        const auto before = rig.heard();
        rig.drag ("sub", 0.8f, milliseconds);
        const auto first = rig.heard();
        rig.drag ("sub", 0.3f, milliseconds);
        const auto second = rig.heard();
        EXPECT_EQ (rig.manager().getUndoDescriptions().size(), 2);

        EXPECT_TRUE (rig.history().undo());
        EXPECT_EQ (rig.heard(), first);
        pumpMessages (milliseconds);
        EXPECT_TRUE (rig.history().undo());
        EXPECT_EQ (rig.heard(), before);
        EXPECT_FALSE (rig.history().undo());
        EXPECT_TRUE (rig.history().redo());
        EXPECT_EQ (rig.heard(), first);
        EXPECT_TRUE (rig.history().redo());
        EXPECT_EQ (rig.heard(), second);
        EXPECT_FALSE (rig.history().redo());

        rig.begin ("trim");
        EXPECT_FALSE (rig.history().undo());
        rig.end ("trim");
        EXPECT_TRUE (rig.history().canUndo()); // a touch without a change is no step
        EXPECT_EQ (rig.manager().getUndoDescriptions().size(), 2);
    }
}

TEST (EditHistory, LinkingLanesThatDifferIsTakenBackBitByBit)
{
    HistoryRig rig;
    rig.setRandomly (1);
    const auto before = rig.heard();
    rig.begin ("link");
    rig.set ("link", 1.0f);
    rig.end ("link");
    const auto linked = rig.heard();
    EXPECT_EQ (rig.get ("subR"), rig.get ("sub"));

    EXPECT_TRUE (rig.history().undo());
    EXPECT_EQ (rig.heard(), before);
    EXPECT_TRUE (rig.history().redo());
    EXPECT_EQ (rig.heard(), linked);
    EXPECT_EQ (rig.manager().getUndoDescriptions().size(), 1);
}

TEST (EditHistory, ProgramsAndChartDragsHaveNames)
{
    HistoryRig rig;
    const auto before = rig.heard();
    rig.processor.setCurrentProgram (4);
    const auto program = rig.heard();
    rig.processor.setPendingTransactionName ("Move chart node");
    EXPECT_TRUE (rig.processor.isTransactionPending());
    rig.drag ("160hz", 0.9f);
    EXPECT_FALSE (rig.processor.isTransactionPending());
    rig.drag ("trim", 0.2f);

    rig.begin ("laneABypass");
    rig.set ("laneABypass", 1.0f);
    rig.end ("laneABypass");

    EXPECT_EQ (rig.manager().getUndoDescriptions(),
        (juce::StringArray { "Lane 1 Bypass", "TRIM", "Move chart node", "Load preset: Smiley Curve" }));
    rig.history().undo();
    rig.history().undo();
    rig.history().undo();
    EXPECT_EQ (rig.heard(), program);
    rig.history().undo();
    EXPECT_EQ (rig.heard(), before);
}

TEST (EditHistory, AnOperationThatThrowsIsOverAndAPendingNameIsForTheNextStepOnly)
{
    HistoryRig rig;
    rig.drag ("sub", 0.8f);
    EXPECT_THROW (rig.history().perform ("broken", [] { throw std::runtime_error ("broken"); }), std::runtime_error);
    EXPECT_TRUE (rig.history().undo());

    rig.processor.setPendingTransactionName ("Move chart node");
    rig.processor.setCurrentProgram (2);
    rig.drag ("trim", 0.2f);
    EXPECT_EQ (rig.manager().getUndoDescription(), "TRIM");
}

TEST (EditHistory, ASnapshotIsOneStepWithTheLanesAsTheyAre)
{
    HistoryRig rig;
    {
        const ParameterLinks::ScopedPause pause (rig.processor.getCore().getLinks());
        rig.set ("subR", 0.1f);
    }
    const auto snapshot = rig.processor.copyState();
    const auto heard = rig.heard();
    rig.drag ("sub", 0.9f);
    const auto changed = rig.heard();
    const auto counter = rig.processor.getStateChangeCounter();

    rig.processor.applySnapshot (snapshot, "A/B");
    EXPECT_EQ (rig.heard(), heard);
    EXPECT_GT (rig.processor.getStateChangeCounter(), counter);
    EXPECT_EQ (rig.manager().getUndoDescription(), "A/B");
    rig.history().undo();
    EXPECT_EQ (rig.heard(), changed);
    rig.history().redo();
    EXPECT_EQ (rig.heard(), heard);
}

TEST (EditHistory, TheHostsAutomationPassesBy)
{
    HistoryRig rig;
    rig.drag ("sub", 0.7f);

    // Two linked parameters from another thread, long enough for many flushes.
    std::thread host (
        [&]
        {
            for (int i = 0; i < 300; ++i)
            {
                rig.set ("650hz", static_cast<float> (i % 100) / 100.0f);
                rig.set ("airGainR", static_cast<float> (i % 77) / 77.0f);
                std::this_thread::sleep_for (std::chrono::milliseconds (1));
            }
        });
    pumpMessages (400);
    host.join();
    EXPECT_EQ (rig.manager().getUndoDescriptions().size(), 1);

    // And on the message thread, where the links' gestures must not count as the user's.
    rig.set ("40hz", 0.9f);
    pumpMessages (150);
    EXPECT_EQ (rig.manager().getUndoDescriptions().size(), 1);

    rig.history().undo();
    EXPECT_EQ (rig.get ("sub"), 0.5f);
    EXPECT_EQ (rig.get ("40hzR"), 0.9f);
    EXPECT_EQ (rig.get ("650hz"), 0.99f);
}

TEST (EditHistory, AStepBeginsWithWhatTheHostHasBroughtBack)
{
    HistoryRig rig;
    rig.drag ("sub", 0.7f);
    rig.history().undo();
    rig.set ("sub", 0.7f); // the value that was flushed last, though not the tree's
    rig.drag ("sub", 0.9f);
    rig.history().undo();
    EXPECT_EQ (rig.get ("sub"), 0.7f);
}

TEST (EditHistory, ARestoreForgetsTheStepsBeforeIt)
{
    HistoryRig rig;
    rig.drag ("sub", 0.7f);
    const auto state = rig.save();
    rig.drag ("sub", 0.2f);
    rig.restore (state);
    EXPECT_FALSE (rig.history().canUndo());
    rig.drag ("sub", 0.1f);
    rig.history().undo();
    EXPECT_EQ (rig.get ("sub"), 0.7f);
}

} // namespace
} // namespace kestreleq::test
