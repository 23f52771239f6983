#include "tests/support/HostThreads.h"
#include "tests/support/OpenEditor.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/RealTimeGuard.h"
#include "tests/support/Signals.h"

#include "engine/RealTime.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <mutex>
#include <random>
#include <string>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>

namespace kestreleq::test
{
namespace
{

TEST (RealTime, TheGuardSeesAllocationsAndLocks)
{
    if (! canGuardRealTime())
        GTEST_SKIP() << "the sanitizer owns the allocator";

    std::mutex mutex;
    juce::CriticalSection section;
    const RealTimeGuard guard;
    EXPECT_EQ (guard.allocations() + guard.locks() + guard.systemCalls(), 0);

    int* volatile number = new int (1); // through a volatile pointer, or the compiler drops the pair
    EXPECT_EQ (guard.allocations(), 1);
    delete number;
    EXPECT_EQ (guard.allocations(), 2);
    EXPECT_EQ (guard.locks(), 0);
    mutex.lock();
    mutex.unlock();
    EXPECT_EQ (guard.locks(), 1);
    {
        const juce::ScopedLock lock (section);
        EXPECT_EQ (guard.locks(), 2);
    }
    juce::Thread::sleep (1);
    EXPECT_GE (guard.locks(), 3);
}

TEST (RealTime, TheGuardSeesSystemCallsAndPageFaults)
{
    if (! canGuardRealTime() || ! canWatchSystemCalls())
        GTEST_SKIP() << "this machine cannot watch system calls";

    const auto parent = ::getppid();
    {
        const RealTimeGuard guard;
        EXPECT_EQ (::getppid(), parent) << "a watched call does what it does";
        EXPECT_EQ (guard.systemCalls(), 1);
    }

    constexpr std::size_t size = 1 << 16;
    auto* const pages =
        static_cast<char*> (::mmap (nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE (pages, MAP_FAILED);
    {
        const RealTimeGuard guard;
        static_cast<volatile char*> (pages)[size / 2] = 1;
        EXPECT_EQ (guard.systemCalls(), 0);
        EXPECT_GE (guard.pageFaults(), 1);
    }
    ::munmap (pages, size);
}

#if defined(__clang__)
#if __has_feature(realtime_sanitizer)
void allocates() KESTREL_NONBLOCKING
{
    void* volatile block = std::malloc (16);
    std::free (block);
}

TEST (RealTime, TheSanitizerSeesAnAllocation)
{
    EXPECT_DEATH (allocates(), "RealtimeSanitizer: unsafe-library-call");
}
#endif
#endif

/** What a stretch of blocks did that it must not: allocations, locks, system calls, page faults. */
using Offences = std::array<int, 4>;

/** Blocks of every length, empty ones and much longer ones than were prepared for, some of them mono, some with NaN. */
Offences runBlocks (ProcessorRig& rig, int numBlocks)
{
    Stereo noise { whiteNoise (1, 4096, 0.5), whiteNoise (2, 4096, 0.5) };
    std::mt19937 random (1);
    Offences offences {};

    for (int i = 0; i < numBlocks; ++i)
    {
        const auto length = static_cast<int> (random() % 4097);
        float* channels[] = { noise[0].data(), noise[1].data() };
        juce::AudioBuffer<float> buffer (channels, i % 10 == 0 ? 1 : 2, length);
        {
            const RealTimeGuard guard;
            rig.processor.processBlock (buffer, rig.midi);
            const Offences these { guard.allocations(), guard.locks(), guard.systemCalls(), guard.pageFaults() };

            for (std::size_t kind = 0; kind < these.size(); ++kind)
                offences[kind] += these[kind];
        }
        noise[0][0] = i % 100 == 0 ? std::numeric_limits<float>::quiet_NaN() : 0.5f;
    }

    return offences;
}

TEST (RealTime, ProcessBlockOnlyComputesWhateverGoesOnBeside)
{
    ProcessorRig rig (48000.0, 512);
    OpenEditor editor (rig.processor);
    const HostThreads host (rig.processor);
    Offences offences {};
    std::atomic<bool> done { false };
    std::thread audio (
        [&]
        {
            // What belongs to the thread and the program is touched by another instance's blocks; what faults after
            // them is memory that preparing this one has left for the first block.
            mapProgramAndStack();
            ProcessorRig other (48000.0, 512);
            runBlocks (other, 500);
            offences = runBlocks (rig, 3000);
            done = true;
        });

    for (int i = 0; ! done; ++i)
    {
        editor.work (5);
        rig.processor.setCurrentProgram (i % rig.processor.getNumPrograms());
    }

    audio.join();
    EXPECT_EQ (offences, Offences {});
}

/** Two hundred instances without a window do this two thousand times a second, on the message thread. */
TEST (RealTime, AnIdleHistoryLooksNothingUp)
{
    if (! canGuardRealTime())
        GTEST_SKIP() << "the sanitizer owns the allocator";

    ProcessorRig rig;
    auto& history = rig.processor.getCore().getHistory();
    rig.set ("trim", 0.25f);
    history.flush();
    history.flush(); // sees what the first has written

    const RealTimeGuard guard;
    history.flush();
    EXPECT_EQ (guard.allocations() + guard.systemCalls(), 0);
}

TEST (RealTime, AHostsAutomationCostsTheFrameworksLocksOnly)
{
    if (! canGuardRealTime())
        GTEST_SKIP() << "the sanitizer owns the allocator";

    const auto change = [] (const char* name, float link)
    {
        ProcessorRig rig;
        rig.set ("link", link);
        const RealTimeGuard guard;
        rig.set ("sub", 0.75f);
        const auto locks = guard.locks(), others = guard.allocations() + guard.systemCalls();
        RecordProperty (name, std::to_string (locks) + " locks");
        return others;
    };

    EXPECT_EQ (change ("unlinked", 0.0f), 0);
    EXPECT_EQ (change ("linked", 1.0f), 0);
}

} // namespace
} // namespace kestreleq::test
