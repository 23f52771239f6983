#include "ui_pro/controls/support/SupportDiagnosticsPanel.h"

#include <gtest/gtest.h>

#if JUCE_LINUX
#include <csignal>
#include <sys/resource.h>
#endif

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;
using Action = SupportDiagnosticsPanel::Action;

const juce::Time noon (2026, 2, 1, 12, 0, 7, 45);

DiagnosticsRecord exampleRecord()
{
    DiagnosticsRecord record;
    record.pluginName = "Kestrel EQ";
    record.version = "1.2.0";
    record.cpu = juce::String::fromUTF8 ("Prozessor \xc2\xb5");
    record.host = "A host";
    record.supportLink = "mailto:help";
    record.supportEmail = "help";
    record.manualAddress = "manual";
    record.quickStartAddress = "start";
    return record;
}

class SupportPanelTest : public testing::Test
{
protected:
    SupportPanelTest()
    {
        folder.createDirectory();
        panel.services.now = [] { return noon; };
        panel.services.copyText = [this] (const juce::String& text)
        {
            log.add ("copy " + text);
            return isClipboardThere;
        };
        panel.services.openAddress = [this] (const juce::String& address) { log.add ("open " + address); };
        panel.services.openFolder = [this] (const juce::File& opened) { log.add ("show " + opened.getFileName()); };
        panel.services.chooseFile = [this] (const juce::File& suggestion, auto done)
        {
            log.add ("choose " + suggestion.getFileName());
            answerChooser = done;
        };
        panel.setHooks ({ [this] { log.add ("reset"); }, [this] { log.add ("close"); } });
        panel.setRecord (exampleRecord());
        panel.setSize (836, 429);
    }

    ~SupportPanelTest() override { folder.deleteRecursively(); }

    /** What a click on a button does; a disabled one gets none, as in the window. */
    juce::String click (Action action)
    {
        log.clear();

        if (auto& button = panel.getButton (action); button.isEnabled())
            button.onClick();

        return log.joinIntoString ("|");
    }

    const juce::File folder = juce::File::createTempFile ("");
    const juce::File file = folder.getChildFile ("report.txt");
    juce::StringArray log;
    bool isClipboardThere = true;
    std::function<void (const juce::File&)> answerChooser;
    SupportDiagnosticsPanel panel;
};

TEST_F (SupportPanelTest, EachButtonDoesItsOneThing)
{
    auto record = exampleRecord();
    record.configurationFolder = folder.getChildFile ("made");
    panel.setRecord (record);

    const auto copied = click (Action::copyDiagnostics);

    for (const auto* line : { "copy === Kestrel EQ 1.2.0 - Diagnostics ===\n", "Generated: 2026-03-01T12:00:07.045",
             "[System]\n", "CPU         : Prozessor \xc2\xb5\n", "Host        : A host\n" })
        EXPECT_TRUE (copied.contains (juce::String::fromUTF8 (line))) << copied;

    EXPECT_EQ (panel.getMessage(), "The report is on the clipboard.");
    EXPECT_EQ (click (Action::contactSupport), "open mailto:help");
    isClipboardThere = false;
    EXPECT_EQ (click (Action::copyEmail), "copy help");
    EXPECT_EQ (panel.getMessage(), "The clipboard cannot be reached.");
    EXPECT_EQ (click (Action::resetDsp), "reset");
    EXPECT_EQ (click (Action::openConfigFolder), "show made");
    EXPECT_TRUE (record.configurationFolder.isDirectory());
    EXPECT_EQ (click (Action::userManual), "open manual");
    EXPECT_EQ (click (Action::quickStart), "open start");
    EXPECT_EQ (click (Action::close), "close");
}

TEST_F (SupportPanelTest, SavesWhereTheUserSaysAndNothingWhenCancelled)
{
    const auto report = click (Action::copyDiagnostics).substring (5);
    EXPECT_EQ (click (Action::saveDiagnostics), "choose KestrelEQ-diagnostics-20260301-120007.txt");
    answerChooser ({});
    EXPECT_FALSE (file.exists());

    file.replaceWithText (juce::String::repeatedString ("something longer than the report ", 100));
    click (Action::saveDiagnostics);
    panel.setRecord ({}); // the report is of the moment of the press
    answerChooser (file);
    const auto expected = report.replace ("\n", "\r\n");
    EXPECT_EQ (file.loadFileAsString(), expected);
    EXPECT_EQ (file.getSize(), static_cast<juce::int64> (expected.getNumBytesAsUTF8())) << "no mark before it";
    EXPECT_EQ (panel.getMessage(), "Saved as report.txt.");
    answerChooser (file.getChildFile ("below a file.txt"));
    EXPECT_EQ (panel.getMessage(), "Cannot write " + file.getChildFile ("below a file.txt").getFullPathName() + ".");
    EXPECT_TRUE (file.existsAsFile());
}

#if JUCE_LINUX
TEST_F (SupportPanelTest, ADiskThatFillsUpLeavesTheOldFileWhole)
{
    file.replaceWithText ("old");

    rlimit before {};
    getrlimit (RLIMIT_FSIZE, &before);
    auto limited = before;
    limited.rlim_cur = 100;
    const auto handler = std::signal (SIGXFSZ, SIG_IGN);
    setrlimit (RLIMIT_FSIZE, &limited);
    const auto written = writeDiagnosticsReport (file, juce::String::repeatedString ("a longer report ", 20));
    setrlimit (RLIMIT_FSIZE, &before);
    std::signal (SIGXFSZ, handler);

    EXPECT_FALSE (written);
    EXPECT_EQ (file.loadFileAsString(), "old");
    EXPECT_EQ (folder.getNumberOfChildFiles (juce::File::findFiles + juce::File::ignoreHiddenFiles), 1);
    EXPECT_EQ (folder.getNumberOfChildFiles (juce::File::findFiles), 1);
}
#endif

} // namespace
} // namespace kestreleq::test
