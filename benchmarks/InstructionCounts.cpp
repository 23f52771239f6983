#include "benchmarks/InstructionCounts.h"

#include "benchmarks/Workload.h"

#include <cstdio>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define KESTREL_HAS_CALLGRIND 1
#else
#define KESTREL_HAS_CALLGRIND 0
#endif

namespace kestreleq::speed
{

bool countInstructions ([[maybe_unused]] const std::string& beginning)
{
#if KESTREL_HAS_CALLGRIND
    if (RUNNING_ON_VALGRIND == 0)
        return false;

    constexpr int numSamples = 8192;

    for (const auto task : tasks)
        for (const auto rate : rates)
            for (const auto block : blocks)
                for (const auto form : forms)
                {
                    const auto name = keyOf (nameOf (task), nameOf (form), rate, block);

                    if (! name.starts_with (beginning))
                        continue;

                    NoiseRun noise (makeWorkload (task, form, rate, block), block);
                    noise.run (4096);
                    CALLGRIND_ZERO_STATS;
                    noise.run (numSamples);
                    const auto label = name + " samples " + std::to_string (noise.rounded (numSamples));
                    CALLGRIND_DUMP_STATS_AT (label.c_str());
                }

    return true;
#else
    return false;
#endif
}

} // namespace kestreleq::speed
