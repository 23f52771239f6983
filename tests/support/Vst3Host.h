#pragma once

#include "tests/support/Vst3Module.h"

#include <pluginterfaces/gui/iplugview.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <mutex>
#include <poll.h>
#include <string>
#include <utility>
#include <vector>

namespace kestreleq::test
{

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // the interfaces have none, by their nature
#endif

/** What an edit controller tells its host, from any thread. */
class HandlerLog final : public HostObject<Vst::IComponentHandler>
{
public:
    HandlerLog()
        : HostObject (Vst::IComponentHandler_iid)
    {
    }

    /** Gestures and values of one parameter so far, as "begin 0.80 end". */
    std::string of (Vst::ParamID id) const
    {
        const std::lock_guard<std::mutex> lock (mutex);
        juce::StringArray words;

        for (const auto& [subject, word] : entries)
            if (subject == id)
                words.add (word);

        return words.joinIntoString (" ").toStdString();
    }

    std::size_t size() const
    {
        const std::lock_guard<std::mutex> lock (mutex);
        return entries.size();
    }

    void clear()
    {
        const std::lock_guard<std::mutex> lock (mutex);
        entries.clear();
    }

    /** Called with what a restart is to renew. */
    std::function<void (Steinberg::int32)> onRestart;

    Steinberg::tresult PLUGIN_API beginEdit (Vst::ParamID id) override { return note (id, "begin"); }

    Steinberg::tresult PLUGIN_API performEdit (Vst::ParamID id, Vst::ParamValue value) override
    {
        return note (id, juce::String (value, 2));
    }

    Steinberg::tresult PLUGIN_API endEdit (Vst::ParamID id) override { return note (id, "end"); }

    Steinberg::tresult PLUGIN_API restartComponent (Steinberg::int32 flags) override
    {
        if (onRestart != nullptr)
            onRestart (flags);

        return Steinberg::kResultOk;
    }

private:
    Steinberg::tresult note (Vst::ParamID id, const juce::String& word)
    {
        const std::lock_guard<std::mutex> lock (mutex);
        entries.emplace_back (id, word);
        return Steinberg::kResultOk;
    }

    mutable std::mutex mutex;
    std::vector<std::pair<Vst::ParamID, juce::String>> entries;
};

/** A host whose own thread is the module's message thread, as on Windows: for all instances that are made while it
   lives. Without, the module has a message thread of its own. */
class HostLoop final : public HostObject<Steinberg::Linux::IRunLoop>
{
public:
    explicit HostLoop (Vst3Module& moduleToRun)
        : HostObject (Steinberg::Linux::IRunLoop_iid),
          factory (interfaceOf<Steinberg::IPluginFactory3> (*moduleToRun.getFactory(), Steinberg::IPluginFactory3_iid))
    {
        factory->setHostContext (this);
    }

    ~HostLoop() override { factory->setHostContext (nullptr); }

    /** Lets the module's messages and timers run for so long. */
    void pump (int milliseconds)
    {
        using std::chrono::steady_clock;
        const auto end = steady_clock::now() + std::chrono::milliseconds (milliseconds);

        for (auto now = steady_clock::now(); now < end; now = steady_clock::now())
        {
            const auto left = std::chrono::ceil<std::chrono::milliseconds> (end - now).count();
            std::vector<pollfd> files;

            for (const auto& [handler, file] : handlers)
                files.push_back ({ file, POLLIN, 0 });

            if (::poll (files.data(), files.size(), static_cast<int> (left)) <= 0)
                continue;

            for (const auto& file : files)
                for (const auto& [handler, number] : std::vector (handlers))
                    if ((file.revents & POLLIN) != 0 && number == file.fd)
                        handler->onFDIsSet (number);
        }
    }

    Steinberg::tresult PLUGIN_API registerEventHandler (
        Steinberg::Linux::IEventHandler* handler, Steinberg::Linux::FileDescriptor file) override
    {
        handlers.emplace_back (handler, file);
        return Steinberg::kResultOk;
    }

    Steinberg::tresult PLUGIN_API unregisterEventHandler (Steinberg::Linux::IEventHandler* handler) override
    {
        std::erase_if (handlers, [handler] (const auto& entry) { return entry.first == handler; });
        return Steinberg::kResultOk;
    }

    Steinberg::tresult PLUGIN_API registerTimer (
        Steinberg::Linux::ITimerHandler*, Steinberg::Linux::TimerInterval) override
    {
        return Steinberg::kNotImplemented;
    }

    Steinberg::tresult PLUGIN_API unregisterTimer (Steinberg::Linux::ITimerHandler*) override
    {
        return Steinberg::kNotImplemented;
    }

private:
    Steinberg::IPtr<Steinberg::IPluginFactory3> factory;
    std::vector<std::pair<Steinberg::Linux::IEventHandler*, Steinberg::Linux::FileDescriptor>> handlers;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

} // namespace kestreleq::test
