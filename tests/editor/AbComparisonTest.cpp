#include "editor/header/AbComparison.h"
#include "editor/header/StateClipboard.h"
#include "tests/support/ProcessorRig.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

TEST (AbComparison, FlipsBetweenTwoSettingsAndStepsAreUndoable)
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
    EXPECT_EQ (rig.processor.getCurrentProgram(), 3) << "the program is not part of a slot";
    EXPECT_TRUE (rig.processor.getCore().getHistory().undo());
    const auto program = rig.processor.getCore().copyState();
    EXPECT_TRUE (rig.processor.getCore().getHistory().redo());

    EXPECT_TRUE (comparison.switchTo (1));
    EXPECT_TRUE (rig.processor.getCore().copyState().isEquivalentTo (program));
    EXPECT_FALSE (comparison.switchTo (2));
}

TEST (StateClipboard, TakesBackWhatItGaveAndNothingElse)
{
    ProcessorRig rig;
    juce::String clipboard;
    StateClipboard state (rig.processor);
    state.read = [&] { return clipboard; };
    state.write = [&] (const juce::String& text) { clipboard = text; };

    EXPECT_FALSE (state.canPaste());
    EXPECT_FALSE (state.paste());

    rig.set ("trim", 0.3f);
    state.copy();
    EXPECT_TRUE (clipboard.contains ("\r\n"));
    EXPECT_FALSE (clipboard.replace ("\r\n", "").containsChar ('\n'));
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
