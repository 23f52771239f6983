#include "tests/support/ProcessorRig.h"
#include "tests/support/RealTimeGuard.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <thread>

namespace kestreleq::test
{
namespace
{

class RealTime : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! canGuardRealTime())
            GTEST_SKIP() << "the sanitizer owns the allocator";
    }
};

TEST_F (RealTime, TheGuardSeesAllocationsAndLocks)
{
    // Through volatile pointers, or the compiler drops the pairs.
    std::mutex mutex;
    juce::CriticalSection section;
    const RealTimeGuard guard;
    EXPECT_EQ (guard.allocations() + guard.locks(), 0);

    int* volatile number = new int (1);
    EXPECT_EQ (guard.allocations(), 1);
    delete number;
    EXPECT_EQ (guard.allocations(), 2);
    {
        const std::string volatileText (100, 'x');
        EXPECT_GE (guard.allocations(), 3);
    }
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

TEST_F (RealTime, ProcessBlockNeitherAllocatesNorLocks)
{
    ProcessorRig rig (48000.0, 512);
    rig.processor.setCapturing (true);

    Stereo noise { whiteNoise (1, 4096, 0.5), whiteNoise (2, 4096, 0.5) };
    std::mt19937 random (1);

    // Another thread moves everything while the blocks go through.
    std::atomic<bool> stop { false };
    std::thread automation (
        [&]
        {
            std::mt19937 other (2);
            while (! stop)
            {
                rig.set (parameterTable[other() % numParameters].id, static_cast<float> (other() % 1025) / 1024.0f);

                if (other() % 50 == 0)
                    rig.processor.setCurrentProgram (static_cast<int> (other() % 6));
            }
        });

    int allocations = 0, locks = 0;

    for (int i = 0; i < 3000; ++i)
    {
        const auto length = static_cast<int> (random() % 4097); // well above what was prepared for, and 0
        float* channels[] = { noise[0].data(), noise[1].data() };
        juce::AudioBuffer<float> buffer (channels, i % 10 == 0 ? 1 : 2, length);
        const RealTimeGuard guard;
        rig.processor.processBlock (buffer, rig.midi);
        allocations += guard.allocations();
        locks += guard.locks();
        noise[0][0] = i % 100 == 0 ? std::numeric_limits<float>::quiet_NaN() : 0.5f;
    }

    stop = true;
    automation.join();
    EXPECT_EQ (allocations, 0);
    EXPECT_EQ (locks, 0);
}

} // namespace
} // namespace kestreleq::test
