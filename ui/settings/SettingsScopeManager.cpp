#include "ui/settings/SettingsScopeManager.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

namespace quillon::ui::settings
{
namespace
{
constexpr auto scopeKey = "settings_scope";

constexpr double saveDelay = 500.0;   // ms
constexpr double watchPeriod = 500.0; // ms

std::atomic<SettingsScopeManager::Clock> clock { juce::Time::getMillisecondCounterHiRes };

std::mutex instanceMutex; // guards the next two
SettingsScopeManager* instance = nullptr;
std::optional<SettingsScopeManager::Options> pendingOptions;

SettingsScopeManager::Options usualScopeFile()
{
    SettingsScopeManager::Options options;
    options.applicationName = "QuillonDSP";
    options.filenameSuffix = ".quillondsp-scope";
    options.folderName = ".quillondsp";
    options.osxLibrarySubFolder = "Application Support";
    options.millisecondsBeforeSaving = -1;
    options.storageFormat = juce::PropertiesFile::storeAsXML;
    return options;
}

/** In units of the system's, 0 when there is no such file. The framework rounds to whole seconds except on Windows,
    where it is the finer one: two changes within a second would look like one. */
juce::int64 modificationTimeOf (const juce::File& file)
{
#ifdef JUCE_WINDOWS
    return file.getLastModificationTime().toMilliseconds();
#else
    std::error_code error;
    const auto time = std::filesystem::last_write_time (file.getFullPathName().toStdString(), error);
    return error ? 0 : time.time_since_epoch().count();
#endif
}

/** A process that is killed while it saves leaves the temporary file behind that was to become the file. One that is
    older than a day belongs to nobody any more. */
void deleteStaleTemporaries (const juce::File& file)
{
    const auto pattern = file.getFileNameWithoutExtension() + "_temp*" + file.getFileExtension();

    for (const auto& temporary : file.getParentDirectory().findChildFiles (juce::File::findFiles, false, pattern))
        if (juce::Time::getCurrentTime() - temporary.getLastModificationTime() > juce::RelativeTime::days (1.0))
            temporary.deleteFile();
}
} // namespace

SettingsScopeManager& SettingsScopeManager::getInstance()
{
    const std::scoped_lock lock (instanceMutex);

    if (instance == nullptr)
        instance = new SettingsScopeManager (pendingOptions); // the framework's shutdown deletes it

    return *instance;
}

SettingsScopeManager* SettingsScopeManager::getInstanceWithoutCreating()
{
    const std::scoped_lock lock (instanceMutex);
    return instance;
}

void SettingsScopeManager::setContextFromAnyThread (const juce::String& context)
{
    auto& manager = getInstance();

    if (juce::MessageManager::existsAndIsCurrentThread())
    {
        manager.setContext (context);
        return;
    }

    // By then the manager may be gone, and none must be made while the framework shuts down: it would stay behind.
    juce::MessageManager::callAsync (
        [context]
        {
            if (auto* current = getInstanceWithoutCreating())
                current->setContext (context);
        });
}

void SettingsScopeManager::setDefaultFileOptions (const Options& options)
{
    const std::scoped_lock lock (instanceMutex);

    if (instance == nullptr)
        pendingOptions = options;
}

void SettingsScopeManager::clearDefaultFileOptions()
{
    const std::scoped_lock lock (instanceMutex);
    pendingOptions.reset();
}

void SettingsScopeManager::setClock (Clock newClock)
{
    clock = newClock != nullptr ? newClock : juce::Time::getMillisecondCounterHiRes;
}

// On any thread. Nothing here needs the message thread: the file is read at once, and timers may be started anywhere.
// The timer comes last, because its callback can run from then on.
SettingsScopeManager::SettingsScopeManager (std::optional<Options> pendingFileOptions)
    : watchDue (clock.load()() + watchPeriod),
      customOptions (std::move (pendingFileOptions))
{
    openAndLoad();
    wakeInTime();
}

SettingsScopeManager::~SettingsScopeManager()
{
    stopTimer();

    const std::scoped_lock lock (instanceMutex);

    if (instance == this)
        instance = nullptr;
}

void SettingsScopeManager::setFileOptions (const Options& options)
{
    changeFile (options);
}

void SettingsScopeManager::resetFileOptions()
{
    changeFile (std::nullopt);
}

void SettingsScopeManager::changeFile (std::optional<Options> newOptions)
{
    JUCE_ASSERT_MESSAGE_THREAD
    scopeFile.reset();
    customOptions = std::move (newOptions);
    openAndLoad();
}

void SettingsScopeManager::setContext (const juce::String& newContext)
{
    JUCE_ASSERT_MESSAGE_THREAD

    if (context == newContext)
        return;

    context = newContext;
    listeners.notify();
}

void SettingsScopeManager::setPerPluginScope (bool shouldBePerPlugin)
{
    JUCE_ASSERT_MESSAGE_THREAD

    if (perPluginScope == shouldBePerPlugin)
        return;

    perPluginScope = shouldBePerPlugin;
    saveDue = clock.load()() + saveDelay;
    wakeInTime();
    listeners.notify();
}

int SettingsScopeManager::addListener (std::function<void()> callback)
{
    JUCE_ASSERT_MESSAGE_THREAD
    return listeners.add (std::move (callback));
}

void SettingsScopeManager::removeListener (int id)
{
    JUCE_ASSERT_MESSAGE_THREAD
    listeners.remove (id);
}

std::vector<SettingsScopeManager::Options> SettingsScopeManager::resolveOptions (const Options& client) const
{
    if (context.isEmpty())
        return { client };

    auto own = client;
    own.applicationName << "-" << context;

    if (perPluginScope)
        return { own };

    return { client, own };
}

SettingsScopeManager::Options SettingsScopeManager::resolvePreferredOptions (const Options& client) const
{
    return resolveOptions (client).front();
}

void SettingsScopeManager::runWhatIsDue()
{
    const auto now = clock.load()();
    const bool saves = now >= saveDue, watches = now >= watchDue;

    if (saves)
        saveDue = never;

    if (watches)
        watchDue = now + watchPeriod;

    wakeInTime();

    if (saves)
        save();

    if (watches)
        watch();
}

/** The framework's timers may come early; they are then set again for the rest. */
void SettingsScopeManager::wakeInTime()
{
    startTimer (std::max (1, juce::roundToInt (std::ceil (std::min (saveDue, watchDue) - clock.load()()))));
}

void SettingsScopeManager::openAndLoad()
{
    // The time before the content: a change between the two is then seen by the watch.
    const auto time = modificationTimeOf (fileOptions().getDefaultFile());
    lastSeenTime = load() ? time : 0;
}

SettingsScopeManager::Options SettingsScopeManager::fileOptions() const
{
    return customOptions ? *customOptions : usualScopeFile();
}

juce::PropertiesFile* SettingsScopeManager::openScopeFile (Access access)
{
    if (scopeFile == nullptr)
    {
        const auto options = fileOptions();

        if (access == Access::write || options.getDefaultFile().existsAsFile())
            scopeFile = std::make_unique<juce::PropertiesFile> (options);
    }

    return scopeFile.get();
}

bool SettingsScopeManager::load()
{
    const auto* file = openScopeFile (Access::read);

    // A file that vanishes while it is opened counts as a valid one without content.
    if (file == nullptr || ! file->isValidFile() || ! file->getFile().existsAsFile())
        return false;

    perPluginScope = file->getIntValue (scopeKey, 0) == 1;
    return true;
}

void SettingsScopeManager::save()
{
    scopeFile.reset(); // whatever else others have written since is kept

    auto* file = openScopeFile (Access::write);
    file->setValue (scopeKey, perPluginScope ? 1 : 0);

    // What could not be written now must not be written when the file is closed, over the change of another process.
    if (! file->save())
        file->setNeedsToBeSaved (false);

    lastSeenTime = modificationTimeOf (file->getFile());
    deleteStaleTemporaries (file->getFile());
}

void SettingsScopeManager::watch()
{
    const auto* file = openScopeFile (Access::read);

    if (file == nullptr)
        return;

    const auto time = modificationTimeOf (file->getFile());

    if (time == 0 || time == lastSeenTime)
        return;

    const bool old = perPluginScope;
    scopeFile.reset();

    // A file that another process has locked for a moment is tried again.
    if (load())
        lastSeenTime = time;

    if (perPluginScope != old)
        listeners.notify();
}

} // namespace quillon::ui::settings
