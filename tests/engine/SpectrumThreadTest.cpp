#include "engine/analysis/SpectrumAnalyser.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <random>
#include <thread>

namespace kestreleq::test
{
namespace
{

// A host pushes, and in the second half prepares again now and then, while this thread makes all the other calls. Meant
// for the thread sanitizer.
TEST (SpectrumThreads, PushesAndPreparesWhileAnotherThreadReads)
{
    analysis::SpectrumAnalyser analyser;
    ASSERT_TRUE (analyser.prepare (48000.0, 1024, 256, 512));
    analyser.setOn (true);
    std::atomic<bool> stop { false };
    std::thread host (
        [&]
        {
            const auto noise = whiteNoise (1, 1024);
            const auto start = std::chrono::steady_clock::now();
            const auto elapsed = [start] { return std::chrono::steady_clock::now() - start; };

            for (int i = 1; elapsed() < std::chrono::milliseconds (600); ++i)
            {
                analyser.push (static_cast<std::size_t> (i % 3), noise.data(), i % 1025);

                if (i % 21 == 0 && elapsed() > std::chrono::milliseconds (300))
                {
                    std::this_thread::sleep_for (std::chrono::milliseconds (1)); // the reader gets to see some frames
                    analyser.prepare (
                        i % 5 == 0 ? 0.0 : 44100.0, std::size_t { 256 } << (i % 4), 0, i % 2 == 0 ? 64 : 2048);
                }
            }

            stop = true;
        });

    std::mt19937 random (2);
    std::vector<float> curve (600);
    bool outOfRange = false;
    int framesSeen = 0;

    while (! stop)
    {
        const auto dice = random() % 16;
        analyser.readCurve (dice % 3, curve);
        outOfRange |= ! std::all_of (curve.begin(), curve.end(), [] (float v) { return v >= -120.0f && v <= 0.0f; });
        framesSeen += analyser.hasData (dice % 2) && analyser.numPoints() > 0 && analyser.sampleRate() > 0.0 ? 1 : 0;
        analyser.update();

        if (dice < 4)
            analyser.setSlotOn (dice % 2, dice < 3 || analyser.slotMask() == 0);
        else if (dice < 7)
            analyser.setOn (dice != 4);
        else if (dice == 7)
            analyser.clear();
    }

    host.join();
    EXPECT_FALSE (outOfRange);
    EXPECT_GT (framesSeen, 0);
}

} // namespace
} // namespace kestreleq::test
