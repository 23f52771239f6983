#include "tests/support/HostThreads.h"
#include "tests/support/OpenEditor.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <malloc.h>
#include <thread>

namespace kestreleq::test
{
namespace
{

/** An instance in a host's project: its audio thread, its automation, its states, its open window. */
class BusyInstance
{
public:
    ~BusyInstance()
    {
        stop = true;
        audio.join();
        EXPECT_EQ (peakOut, peakOut) << "not finite";
        EXPECT_GT (blocks, 0);
    }

    void messageThreadsTurn (int turn)
    {
        editor.work (2);
        rig.processor.setCurrentProgram (turn % rig.processor.getNumPrograms());
        rig.processor.getCore().getHistory().undo();
        rig.processor.applySnapshot (rig.processor.copyState(), "A/B");
    }

private:
    void run()
    {
        const Stereo noise { whiteNoise (1, 1024, 0.5), whiteNoise (2, 1024, 0.5) };

        while (! stop)
        {
            auto block = noise;
            rig.process (block, 256);
            peakOut = std::max (peak (block[0]), peak (block[1]));
            ++blocks;
        }
    }

    ProcessorRig rig { 48000.0, 256 };
    OpenEditor editor { rig.processor };
    std::atomic<bool> stop { false };
    double peakOut = 0.0;
    int blocks = 0;
    std::thread audio { [this] { run(); } };
    HostThreads host { rig.processor };
};

// Meant for the thread sanitizer.
TEST (HostThreads, TwoInstancesUnderEverythingAtOnce)
{
    BusyInstance first, second;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds (700);

    for (int turn = 0; turn < 3 || std::chrono::steady_clock::now() < end; ++turn)
    {
        first.messageThreadsTurn (turn);
        second.messageThreadsTurn (turn + 1);
    }
}

// Meant for the leak check too, which sees at the end what was lost. Without a window, and once it has been prepared
// again, an instance is small: a project has many.
TEST (Lifecycle, OpeningAndClosingTakesNoMemory)
{
    const auto inUse = [] { return ::mallinfo2().uordblks + ::mallinfo2().hblkhd; };
    constexpr std::size_t small = 160 * 1024, display = 256 * 1024;
    const bool countable = inUse() > 0; // not where a sanitizer owns the allocator
    std::size_t settled = 0;

    for (int round = 0; round < 12; ++round)
    {
        const auto before = inUse();
        ProcessorRig rig;
        const auto closed = inUse() - before;
        OpenEditor (rig.processor).work (0);
        const auto opened = inUse() - before;
        rig.processor.prepareToPlay (96000.0, 64);
        const auto prepared = inUse() - before;
        Stereo noise { whiteNoise (1, 4096), whiteNoise (2, 4096) };
        rig.process (noise, 64);
        rig.processor.setCurrentProgram (3);
        OpenEditor (rig.processor).work (0);

        if (round == 4)
            settled = before;

        if (round < 4 || ! countable) // fonts, images and what all instances share stay
            continue;

        EXPECT_LT (before, settled + 32 * 1024);
        EXPECT_LT (closed, small);
        EXPECT_GT (opened, display) << "the case sees nothing";
        EXPECT_LT (prepared, small);
    }
}

} // namespace
} // namespace kestreleq::test
