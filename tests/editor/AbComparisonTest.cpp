#include "editor/header/AbComparison.h"
#include "editor/header/StateClipboard.h"
#include "tests/support/ProcessorRig.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>
#include <thread>

namespace kestreleq::test
{
namespace
{

TEST (AbComparison, ASlotStartsWithWhatIsHeardAndKeepsItsProgram)
{
    ProcessorRig rig;
    rig.set ("sub", 0.7f);
    AbComparison comparison (rig.processor);
    EXPECT_FALSE (comparison.switchTo (0));

    EXPECT_TRUE (comparison.switchTo (1));
    EXPECT_EQ (rig.get ("sub"), 0.7f) << "a slot starts with what is heard";
    rig.set ("sub", 0.2f);
    rig.processor.setCurrentProgram (3);
    EXPECT_TRUE (comparison.switchTo (0));
    EXPECT_EQ (rig.get ("sub"), 0.7f);
    EXPECT_EQ (rig.processor.getCurrentProgram(), 0) << "the program is part of a slot";
    EXPECT_TRUE (comparison.undo());
    EXPECT_EQ (rig.processor.getCurrentProgram(), 3);
    EXPECT_FALSE (comparison.switchTo (2));

    // What a host loads on a thread of its own belongs to the slot, too, though to no step.
    std::thread ([&] { rig.processor.setCurrentProgram (4); }).join();
    EXPECT_TRUE (comparison.redo());
    EXPECT_EQ (rig.processor.getCurrentProgram(), 0);
    EXPECT_TRUE (comparison.undo());
    EXPECT_EQ (rig.processor.getCurrentProgram(), 4);
}

TEST (AbComparison, NoOrderOfFlipsUndoAndRedoLosesASlot)
{
    ProcessorRig rig;
    AbComparison comparison (rig.processor);
    auto& history = rig.processor.getCore().getHistory();
    const auto settings = [&]
    {
        juce::MemoryBlock block;
        rig.processor.getStateInformation (block);
        return block;
    };

    std::array<std::optional<juce::MemoryBlock>, 2> left;
    std::mt19937 random (1);
    int flips = 0, moves = 0;

    for (int i = 0; i < 3000; ++i)
    {
        const auto slot = comparison.getSlot();
        const auto before = settings();
        const auto value = static_cast<float> (random() % 101) / 100.0f;

        switch (random() % 6)
        {
            case 0:
                comparison.switchTo (1 - slot);
                ++flips;
                break;
            case 1:
                history.beginStep();
                rig.parameter ("sub").beginChangeGesture();
                rig.set ("sub", value);
                rig.parameter ("sub").endChangeGesture();
                history.endStep();
                break;
            case 2:
                rig.set ("trim", value); // the host
                break;
            case 3:
                rig.processor.setCurrentProgram (static_cast<int> (random() % 6));
                break;
            case 4:
                comparison.undo();
                break;
            default:
                comparison.redo();
        }

        if (comparison.getSlot() == slot)
            continue;

        ++moves;
        left[slot] = before;

        if (left[1 - slot])
        {
            ASSERT_TRUE (settings() == *left[1 - slot]) << "after " << i << " actions";
        }
    }

    EXPECT_GT (moves, flips);
}

TEST (StateClipboard, TakesBackWhatItGaveAndNothingElse)
{
    ProcessorRig rig;
    juce::String clipboard;
    StateClipboard state (rig.processor);
    int reads = 0;
    state.hasText = [&] { return clipboard.isNotEmpty(); };
    state.read = [&]
    {
        ++reads;
        return clipboard;
    };
    state.write = [&] (const juce::String& text) { clipboard = text; };

    EXPECT_FALSE (state.canPaste());
    EXPECT_FALSE (state.paste());

    rig.set ("trim", 0.3f);
    state.copy();
    EXPECT_TRUE (clipboard.contains ("\r\n"));
    EXPECT_FALSE (clipboard.replace ("\r\n", "").containsChar ('\n'));
    EXPECT_TRUE (state.canPasteNow());
    EXPECT_EQ (reads, 1) << "only a paste may wait for the program that holds the text";
    rig.set ("trim", 0.9f);
    EXPECT_TRUE (state.paste());
    EXPECT_EQ (rig.get ("trim"), 0.3f);

    const auto good = clipboard;
    for (const auto& bad :
        { good.replace ("Parameters", "Other"), good.substring (0, good.length() / 2), juce::String ("hello") })
    {
        clipboard = bad;
        EXPECT_FALSE (state.paste()) << bad;
        EXPECT_EQ (rig.get ("trim"), 0.3f);
    }

    clipboard = good.replace ("Parameters", "KestrelEQ").replace ("\"0.3", "\"0.4");
    EXPECT_TRUE (state.paste());
    EXPECT_NEAR (rig.get ("trim"), 0.4f, 1e-6f);
}

} // namespace
} // namespace kestreleq::test
