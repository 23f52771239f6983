#pragma once

#include "ui/settings/ScopeListeners.h"

#include <juce_data_structures/juce_data_structures.h>

#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace quillon::ui::settings
{

/** Decides for all of the maker's plug-ins in all processes whether they keep their user settings in one shared file or
    each in its own, and keeps this choice, the scope, in a small file of its own, which it watches for the changes that
    others make.

    One object per process, from the first request until the framework shuts down; the next request makes a new one.
    Message thread only, unless a function says otherwise. A file that cannot be read or written leaves the scope as
    it was, and nobody hears of it. */
class SettingsScopeManager final : private juce::Timer, private juce::DeletedAtShutdown
{
public:
    using Options = juce::PropertiesFile::Options;

    /** Any thread, while the framework is initialised; the object lives until that ends. */
    static SettingsScopeManager& getInstance();

    /** Any thread. Null before the first request and after the framework's shutdown. */
    static SettingsScopeManager* getInstanceWithoutCreating();

    /** Any thread. Creates the manager if need be and sets its context: at once on the message thread, else from there
        as soon as it gets to it. For processors, which hosts construct on any thread. */
    static void setContextFromAnyThread (const juce::String& context);

    /** Any thread. Where the managers yet to be created keep the scope, in place of the usual file. Ignored while there
        is a manager; holds until it is replaced or cleared. */
    static void setDefaultFileOptions (const Options& options);

    /** Any thread. A manager that exists keeps what it has. */
    static void clearDefaultFileOptions();

    /** A time in milliseconds, from whatever beginning. */
    using Clock = double (*)();

    /** For tests: time that passes as they let it, for the managers yet to be created. Null: the real time. */
    static void setClock (Clock newClock);

    ~SettingsScopeManager() override;

    /** Goes over to another scope file and reads the scope from it, without a notification. */
    void setFileOptions (const Options& options);

    /** Where the scope file is, or would be. */
    juce::File getScopeFolder() const { return fileOptions().getDefaultFile().getParentDirectory(); }

    /** Goes back to the usual scope file in the same way. */
    void resetFileOptions();

    /** The plug-in's identity, which names its own settings file; empty at first. A new one notifies the listeners. */
    void setContext (const juce::String& newContext);

    /** True: a settings file for each plug-in, false: one for all. A change notifies the listeners and reaches the disk
        500 ms after the last one. */
    void setPerPluginScope (bool shouldBePerPlugin);

    bool isPerPluginScope() const { return perPluginScope; }

    /** Called after a change of scope or context; see ScopeListeners for the rules. Returns the listener's id, or 0
        without adding when the callback is empty. */
    int addListener (std::function<void()> callback);

    /** Ignores 0 and unknown ids. From inside a callback the removal counts from the next pass on, so the listener may
        be called once more. */
    void removeListener (int id);

    /** Where a client looks for its settings file, the preferred place first; never empty. */
    std::vector<Options> resolveOptions (const Options& client) const;

    /** The first of them. */
    Options resolvePreferredOptions (const Options& client) const;

    /** Saves a change and looks at the file, whichever is due by the clock. A timer calls this in time. */
    void runWhatIsDue();

private:
    enum class Access
    {
        read,
        write
    };

    explicit SettingsScopeManager (std::optional<Options> pendingOptions);

    void timerCallback() override { runWhatIsDue(); }

    void wakeInTime();

    void changeFile (std::optional<Options> newOptions);
    void openAndLoad();
    Options fileOptions() const;
    juce::PropertiesFile* openScopeFile (Access access);
    bool load();
    void save();
    void watch();

    static constexpr auto never = std::numeric_limits<double>::infinity();
    double saveDue = never;
    double watchDue;

    bool perPluginScope = false;
    juce::String context;
    std::unique_ptr<juce::PropertiesFile> scopeFile;
    std::optional<Options> customOptions;
    juce::int64 lastSeenTime = 0; ///< 0: nothing could be read yet
    ScopeListeners listeners;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SettingsScopeManager)
};

} // namespace quillon::ui::settings
