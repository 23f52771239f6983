#include "tests/support/Vst3Host.h"
#include "tests/support/Vst3Module.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <malloc.h>
#include <memory>
#include <sys/resource.h>
#include <vector>

/*  What instances of the built module cost that do nothing: no window is open and no audio runs. Seen from outside,
   with component and controller, in a host that does nothing but run the message loop. */
namespace
{

using kestreleq::test::HostLoop;
using kestreleq::test::Vst3Instance;
using kestreleq::test::Vst3Module;
using Clock = std::chrono::steady_clock;
using Instances = std::vector<std::unique_ptr<Vst3Instance>>;

constexpr double rate = 48000.0;
constexpr int block = 512;
constexpr std::size_t numInstances = 200;

std::size_t bytesInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

double processorSeconds()
{
    rusage usage {};
    getrusage (RUSAGE_SELF, &usage);
    const auto seconds = [] (const timeval& time)
    { return static_cast<double> (time.tv_sec) + 1e-6 * static_cast<double> (time.tv_usec); };
    return seconds (usage.ru_utime) + seconds (usage.ru_stime);
}

/** Adds a prepared instance; returns the time that it took in ms. */
double addInstance (Vst3Module& module, Instances& instances)
{
    const auto start = Clock::now();
    instances.push_back (std::make_unique<Vst3Instance> (module));
    instances.back()->start (rate, block);
    return std::chrono::duration<double, std::milli> (Clock::now() - start).count();
}

/** The part of a core that the process takes while nothing happens. */
double idleLoad (HostLoop& loop)
{
    loop.pump (2000); // what making the instances has left to do
    const auto before = processorSeconds();
    loop.pump (10000);
    return (processorSeconds() - before) / 10.0;
}

} // namespace

int main()
{
    Vst3Module module;
    HostLoop loop (module);
    Instances instances;
    addInstance (module, instances); // what all of them share
    const auto loadOfOne = idleLoad (loop);
    const auto bytesBefore = bytesInUse();
    std::vector<double> times;

    while (instances.size() < numInstances)
        times.push_back (addInstance (module, instances));

    const auto bytes = static_cast<double> (bytesInUse() - bytesBefore) / static_cast<double> (times.size());
    const auto load = idleLoad (loop);
    std::nth_element (times.begin(), times.begin() + numInstances / 2, times.end());

    std::cout << std::fixed << std::setprecision (2)
              << "| | |\n|---|---|\n| a further instance, created and prepared | " << times[numInstances / 2]
              << " ms |\n| its memory | " << std::setprecision (0) << bytes / 1024.0 << " KiB |\n| " << numInstances
              << " idle instances, no window | " << std::setprecision (2) << 100.0 * load
              << " % of a core |\n| a single one | " << 100.0 * loadOfOne << " % of a core |\n";
    return 0;
}
