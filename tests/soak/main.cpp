#include "tests/soak/Soak.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <limits>
#include <unistd.h>

namespace
{

using namespace kestreleq::test;

constexpr double greatestGrowth = 4.0; // MiB; what the allocator keeps for itself varies

double residentMegabytes()
{
    long total = 0, resident = 0;
    std::ifstream ("/proc/self/statm") >> total >> resident;
    return static_cast<double> (resident) * static_cast<double> (::sysconf (_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

/** A check that can find nothing would let every run pass. */
bool checksCanFail()
{
    constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
    return isFaulty (nan, true, true, true) && isFaulty (nan, false, false, true) &&
        ! isFaulty (nan, false, true, true) && isFaulty (2e6f, true, false, true) &&
        ! isFaulty (2e6f, true, false, false);
}

int soak (double seconds, std::uint32_t seed)
{
    Soak run (seed);
    run.run (seconds * 0.2);
    const auto before = residentMegabytes();
    run.run (seconds * 0.8);
    const auto growth = residentMegabytes() - before;
    const auto& report = run.report();

    std::printf ("%.0f s of audio, seed %" PRIu32 ": %" PRIu64 " blocks, peak %.3g, hash %016" PRIx64 "\n", seconds,
        seed, report.blocks, static_cast<double> (report.peak), report.hash);
    std::fprintf (stderr, "memory after a fifth of it: %.1f MiB, at the end %+.1f MiB\n", before, growth);

    if (growth <= greatestGrowth)
        return 0;

    std::fprintf (stderr, "kestrel-soak: the memory in use has grown\n");
    return 1;
}

} // namespace

/** kestrel-soak [SECONDS [SEED]] */
int main (int argc, char** argv)
{
    const auto seconds = argc > 1 ? std::atof (argv[1]) : 600.0;
    const auto seed = argc > 2 ? std::strtoul (argv[2], nullptr, 10) : 1;

    if (argc > 3 || ! (seconds > 0.0))
    {
        std::fprintf (stderr, "usage: kestrel-soak [SECONDS [SEED]]\n");
        return 2;
    }

    if (! checksCanFail())
    {
        std::fprintf (stderr, "kestrel-soak: its checks find nothing\n");
        return 1;
    }

    try
    {
        const juce::ScopedJuceInitialiser_GUI framework;
        return soak (seconds, static_cast<std::uint32_t> (seed));
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "kestrel-soak: %s\n", error.what());
        return 1;
    }
}
