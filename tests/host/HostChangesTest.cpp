#include "engine/parameters/ParameterTable.h"
#include "tests/support/RealTimeGuard.h"
#include "tests/support/Vst3Host.h"
#include "tests/support/Vst3Module.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <optional>
#include <thread>

namespace kestreleq::test
{
namespace
{

using namespace Steinberg;

/** A host with one instance, which it processes; its thread is the module's message thread, or it is not. */
struct Host
{
    explicit Host (bool sharesItsThread)
    {
        if (sharesItsThread)
            loop.emplace (module);

        instance.emplace (module);
        instance->controller->setComponentHandler (&log);
        instance->start (48000.0, 64);
    }

    void process (ParameterChanges* changes = nullptr, ParameterChanges* answer = nullptr)
    {
        std::array<float, 64> left {}, right {};
        EXPECT_EQ (instance->process (left.data(), right.data(), 64, changes, answer), kResultOk);
    }

    void setProgram (int program) { instance->controller->setParamNormalized (programId(), program / 5.0); }

    Vst::ParamID programId() { return programParameterId (*instance->controller); }

    void wait (int milliseconds)
    {
        if (loop)
            loop->pump (milliseconds);
        else
            std::this_thread::sleep_for (std::chrono::milliseconds (milliseconds));
    }

    /** What the host believes. */
    double get (const char* id) { return instance->controller->getParamNormalized (idOf (id)); }

    Vst::ParamID idOf (const char* id) { return parameterId (*instance->controller, id); }

    Vst3Module module;
    std::optional<HostLoop> loop;
    HandlerLog log;
    std::optional<Vst3Instance> instance;
};

class HostChangesOn : public testing::TestWithParam<bool>
{
};

INSTANTIATE_TEST_SUITE_P (Threads, HostChangesOn, testing::Bool(),
    [] (const auto& info) { return info.param ? "TheHostsIsTheModules" : "EachItsOwn"; });

TEST_P (HostChangesOn, ThatLinkingCopiesAreToldOnceTheyRest)
{
    Host host (GetParam());
    host.instance->controller->setParamNormalized (host.idOf ("sub"), 0.8);
    host.wait (600);
    EXPECT_EQ (host.log.of (host.idOf ("subR")), "begin 0.80 end");
    EXPECT_FLOAT_EQ (static_cast<float> (host.get ("subR")), 0.8f);
    EXPECT_EQ (host.log.size(), 3u) << "nothing else is told";

    // A moving automation is not answered on the way.
    host.log.clear();
    for (int i = 1; i <= 15; ++i)
    {
        host.instance->set ({ { "airGain", i / 30.0 } });
        host.wait (50);
    }
    EXPECT_EQ (host.log.size(), 0u);
    host.wait (600);
    EXPECT_EQ (host.log.of (host.idOf ("airGainR")), "begin 0.50 end");

    // Nor is the host told what it has said itself.
    host.log.clear();
    host.instance->set ({ { "40hz", 0.3 }, { "40hzR", 0.6 } });
    host.wait (600);
    EXPECT_EQ (host.log.of (host.idOf ("40hzR")), "");
    EXPECT_EQ (host.log.of (host.idOf ("40hz")), "begin 0.60 end");
}

// A host that opens a project may set the program first and the state after it, and process only then.
TEST_P (HostChangesOn, ThatWereMadeBeforeARestoreAreNotHandedOverAfterIt)
{
    Host host (GetParam());
    host.instance->set ({ { "trim", 0.25 }, { "bypass", 1.0 } });
    const auto project = host.instance->save();

    host.setProgram (2);
    EXPECT_EQ (host.instance->restore (project), kResultOk);
    ParameterChanges handedOver;
    host.process (nullptr, &handedOver);
    EXPECT_EQ (handedOver.getParameterCount(), 0);
    EXPECT_EQ (host.instance->save(), project);

    host.setProgram (2); // but a program that no restore follows is
    host.process (nullptr, &handedOver);
    EXPECT_EQ (handedOver.getParameterCount() > 0, ! GetParam()) << "told at once by its own thread";
}

TEST_P (HostChangesOn, AProgramStaysChosen)
{
    Host host (GetParam());
    auto& controller = *host.instance->controller;
    std::atomic<int> restarts { 0 };

    // A host that is told to reads all values again and sends back what it has read.
    host.log.onRestart = [&] (int32 flags)
    {
        if ((flags & Vst::kParamValuesChanged) == 0)
            return;

        ++restarts;
        const auto value = controller.getParamNormalized (host.programId());
        std::this_thread::sleep_for (std::chrono::milliseconds (1));
        controller.setParamNormalized (host.programId(), value);
    };

    int kept = 0;
    for (int i = 0; i < 50; ++i)
    {
        const auto program = 1 + i % 5;
        host.setProgram (program);
        host.wait (3);
        kept += std::lround (controller.getParamNormalized (host.programId()) * 5.0) == program;
        host.process();
    }

    EXPECT_EQ (kept, 50);
    EXPECT_EQ (restarts > 0, GetParam()) << "its own thread is told at once, no other ever";
}

TEST (HostChanges, TheFirstOfEachParameterAllocatesNothing)
{
    if (! canGuardRealTime())
        GTEST_SKIP() << "the sanitizer owns the allocator";

    for (const double links : { 0.0, 1.0 })
    {
        Host host (false);
        host.instance->set ({ { "link", links }, { "inGainLink", links }, { "outGainLink", links } });
        std::array<float, 64> left {}, right {};

        for (const auto& info : parameterTable)
        {
            ParameterChanges changes;
            changes.add (host.idOf (info.id), info.defaultValue == 1.0f ? 0.0 : 0.75);
            const RealTimeGuard guard;
            host.instance->process (left.data(), right.data(), 64, &changes);
            EXPECT_EQ (guard.allocations(), 0) << info.id << " with links " << links;
        }
    }
}

} // namespace
} // namespace kestreleq::test
