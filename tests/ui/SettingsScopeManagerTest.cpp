#include "ui/settings/SettingsScopeManager.h"

#include "tests/support/MessagePump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <latch>
#include <thread>

namespace kestreleq::test
{
namespace
{
using quillon::ui::settings::SettingsScopeManager;

constexpr auto peerVariable = "KESTREL_SCOPE_PEER";
constexpr int soon = 10000; // ms; for what has to happen, however busy the machine is

double now = 0.0; // ms; what the manager takes for the time

SettingsScopeManager::Options optionsIn (const juce::File& folder)
{
    SettingsScopeManager::Options options;
    options.applicationName = "Scope";
    options.filenameSuffix = ".scope";
    options.folderName = folder.getFullPathName();
    options.osxLibrarySubFolder = "Application Support";
    options.millisecondsBeforeSaving = -1;
    return options;
}

/** A folder for the scope file, and a manager that is made at the first request and goes with the test. Its time passes
    as the test lets it. */
class SettingsScopeManagerTest : public testing::Test
{
protected:
    SettingsScopeManagerTest()
    {
        deleteManager(); // of processors in other tests
        SettingsScopeManager::setDefaultFileOptions (options);
        SettingsScopeManager::setClock ([] { return now; });
    }

    ~SettingsScopeManagerTest() override
    {
        deleteManager();
        SettingsScopeManager::clearDefaultFileOptions();
        SettingsScopeManager::setClock (nullptr);
        folder.deleteRecursively();
    }

    static SettingsScopeManager& manager() { return SettingsScopeManager::getInstance(); }

    static void deleteManager() { delete SettingsScopeManager::getInstanceWithoutCreating(); }

    static void pass (double milliseconds)
    {
        for (const auto end = now + milliseconds; now < end;)
        {
            now += 1.0;
            manager().runWhatIsDue();
        }
    }

    /** In real time. */
    static bool flagBecomes (bool flag)
    {
        return pumpMessagesUntil ([=] { return manager().isPerPluginScope() == flag; }, soon);
    }

    /** As another process does it. */
    void write (int value) const
    {
        juce::Thread::sleep (20); // the times that the system gives to files may be as coarse as that
        juce::PropertiesFile other (options);
        other.setValue ("settings_scope", value);
        ASSERT_TRUE (other.save());
    }

    /** -1: no readable file with the key. */
    int stored() const { return juce::PropertiesFile (options).getIntValue ("settings_scope", -1); }

    const juce::File folder = juce::File::createTempFile ("scope");
    const SettingsScopeManager::Options options = optionsIn (folder);
    const juce::File file = options.getDefaultFile();
};

TEST_F (SettingsScopeManagerTest, NamesThePlacesOfAClient)
{
    SettingsScopeManager::Options client;
    client.applicationName = "App";
    client.folderName = "Folder";
    const auto places = [&]
    {
        juce::StringArray names { manager().resolvePreferredOptions (client).applicationName };
        for (const auto& place : manager().resolveOptions (client))
            names.add (place.folderName + "/" + place.applicationName);

        return names.joinIntoString (" ");
    };

    EXPECT_EQ (places(), "App Folder/App");
    manager().setPerPluginScope (true);
    EXPECT_EQ (places(), "App Folder/App");
    manager().setContext ("KestrelEQ");
    EXPECT_EQ (places(), "App-KestrelEQ Folder/App-KestrelEQ");
    manager().setPerPluginScope (false);
    EXPECT_EQ (places(), "App Folder/App Folder/App-KestrelEQ");
}

TEST_F (SettingsScopeManagerTest, RepeatsThePassForListenersThatChangeThings)
{
    juce::String calls;
    int depth = 0, second = 0;
    manager().addListener (
        [&]
        {
            EXPECT_EQ (++depth, 1);
            calls << "a";
            manager().setContext ("from inside");
            manager().removeListener (second);
            manager().addListener ([&] { calls << "c"; });
            --depth;
        });
    second = manager().addListener ([&] { calls << "b"; });
    manager().setContext ("from outside");
    EXPECT_EQ (calls, "abac"); // the listeners of a pass are those of its beginning
    deleteManager();

    int passes = 0;
    manager().addListener ([&] { manager().setContext (juce::String (++passes)); });

    for (const auto expected : { 11, 22 })
    {
        manager().setContext ("endless");
        EXPECT_EQ (passes, expected);
    }
}

TEST_F (SettingsScopeManagerTest, SavesHalfASecondAfterTheLastChange)
{
    pass (1000.0);
    EXPECT_FALSE (folder.exists()); // nothing is written before the first change

    for (const auto flag : { true, false, true })
    {
        pass (300.0);
        manager().setPerPluginScope (flag);
    }

    pass (499.0);
    EXPECT_FALSE (folder.exists());
    pass (1.0);
    EXPECT_EQ (stored(), 1);

    file.deleteFile();
    manager().setPerPluginScope (true);
    pass (1000.0);
    EXPECT_FALSE (file.existsAsFile()); // no change, no save

    // What others were killed over is cleared away, but nothing that may still be in use or that is somebody else's.
    const auto age = [&] (const char* name, double hours)
    {
        const auto result = folder.getChildFile (name);
        result.replaceWithText ("<");
        result.setLastModificationTime (juce::Time::getCurrentTime() - juce::RelativeTime::hours (hours));
        return result;
    };
    const auto stale = age ("Scope_temp1f00.scope", 25.0);
    const std::array kept { age ("Scope_temp1f01.scope", 23.0), age ("Scopes.scope", 25.0),
        age ("Scope_temp1.txt", 25.0) };
    manager().setPerPluginScope (false);
    pass (1000.0);
    EXPECT_EQ (stored(), 0);
    EXPECT_FALSE (stale.exists());
    EXPECT_TRUE (std::all_of (kept.begin(), kept.end(), [] (const auto& other) { return other.exists(); }));
}

TEST_F (SettingsScopeManagerTest, KeepsWhatAnotherProcessHasJustWritten)
{
    write (0);
    manager().setFileOptions (options);
    pass (499.0);
    manager().setPerPluginScope (true);
    pass (499.0); // a look has been, and saw nothing new
    juce::PropertiesFile other (options);
    other.setValue ("neighbour", 7);
    ASSERT_TRUE (other.save());
    pass (1.0);
    EXPECT_EQ (stored(), 1);
    EXPECT_EQ (juce::PropertiesFile (options).getIntValue ("neighbour"), 7);
}

TEST_F (SettingsScopeManagerTest, FollowsTheFile)
{
    int calls = 0, expected = 0;
    manager().addListener ([&] { ++calls; });

    for (const auto value : { 1, 0, 1 }) // within the same second, most likely
    {
        write (value);
        pass (500.0);
        EXPECT_EQ (manager().isPerPluginScope(), value == 1);
        EXPECT_EQ (calls, ++expected);
    }

    // Neither a touched nor a corrupt nor a vanished file is a change.
    file.setLastModificationTime (juce::Time::getCurrentTime() + juce::RelativeTime (5.0));
    pass (500.0);
    file.replaceWithText ("<PROPERTIES><VALUE name=\"settings_scope\" va");
    pass (500.0);
    file.deleteFile();
    pass (500.0);
    EXPECT_TRUE (manager().isPerPluginScope());
    EXPECT_EQ (calls, 3);

    write (0);
    pass (500.0);
    EXPECT_FALSE (manager().isPerPluginScope());
    EXPECT_EQ (calls, 4);
}

TEST_F (SettingsScopeManagerTest, LeavesTheFlagWhereNothingCanBeWritten)
{
    ASSERT_TRUE (folder.replaceWithText ("no folder")); // root may write into read-only ones
    manager().setPerPluginScope (true);
    pass (600.0);
    EXPECT_TRUE (manager().isPerPluginScope());

    // The write that failed must not be made up for over the change of another process.
    folder.deleteFile();
    write (0);
    pass (600.0);
    EXPECT_FALSE (manager().isPerPluginScope());
    EXPECT_EQ (stored(), 0);
}

TEST_F (SettingsScopeManagerTest, IsMadeOnceAndGivenItsContextFromAnyThread)
{
    SettingsScopeManager::setClock (nullptr);
    std::latch start (8);
    std::array<SettingsScopeManager*, 8> seen {};
    std::vector<std::jthread> threads;

    for (auto& entry : seen)
        threads.emplace_back (
            [&]
            {
                start.arrive_and_wait();
                SettingsScopeManager::setContextFromAnyThread ("KestrelEQ");
                entry = SettingsScopeManager::getInstanceWithoutCreating();
            });

    threads.clear();
    EXPECT_TRUE (std::ranges::all_of (seen, [] (auto* each) { return each == &manager(); }));

    const auto hasContext = [] { return manager().resolveOptions ({}).size() == 2; };
    EXPECT_FALSE (hasContext());
    EXPECT_TRUE (pumpMessagesUntil (hasContext, soon));
    write (1);
    EXPECT_TRUE (flagBecomes (true)); // the watch that another thread started runs here

    // A context that arrives after the manager's end makes no new one.
    std::thread ([] { SettingsScopeManager::setContextFromAnyThread ("Late"); }).join();
    deleteManager();
    pumpMessages (100);
    EXPECT_EQ (SettingsScopeManager::getInstanceWithoutCreating(), nullptr);
}

/** Two processes on the real file in real time, in a home of their own: this test runs itself once more. Each changes
   the scope, and the other has to see it within about a second. */
TEST_F (SettingsScopeManagerTest, AgreesWithAnotherProcess)
{
    SettingsScopeManager::setClock (nullptr);

    if (juce::SystemStats::getEnvironmentVariable (peerVariable, {}).isNotEmpty())
    {
        manager().resetFileOptions();
        manager().setPerPluginScope (true);
        EXPECT_TRUE (flagBecomes (false));
        return;
    }

    const auto home = juce::SystemStats::getEnvironmentVariable ("HOME", {});
    ::setenv ("HOME", folder.getFullPathName().toRawUTF8(), 1);
    ::setenv (peerVariable, "1", 1);

    int calls = 0;
    manager().resetFileOptions();
    manager().addListener ([&] { ++calls; });
    juce::ChildProcess peer;
    EXPECT_TRUE (peer.start (
        juce::StringArray { juce::File::getSpecialLocation (juce::File::currentExecutableFile).getFullPathName(),
            "--gtest_filter=SettingsScopeManagerTest.AgreesWithAnotherProcess" }));

    const auto usual = folder.getChildFile (".quillondsp/QuillonDSP.quillondsp-scope");
    EXPECT_TRUE (pumpMessagesUntil ([&] { return usual.existsAsFile(); }, soon));
    const auto written = juce::Time::getMillisecondCounterHiRes();
    EXPECT_TRUE (flagBecomes (true));
    EXPECT_LT (juce::Time::getMillisecondCounterHiRes() - written, 1500.0);
    EXPECT_EQ (calls, 1);

    manager().setPerPluginScope (false);
    EXPECT_TRUE (pumpMessagesUntil ([&] { return ! peer.isRunning(); }, 2 * soon));
    EXPECT_EQ (peer.getExitCode(), 0u) << peer.readAllProcessOutput();

    ::unsetenv (peerVariable);
    ::setenv ("HOME", home.toRawUTF8(), 1);
}

} // namespace
} // namespace kestreleq::test
