#include "benchmarks/InstructionCounts.h"
#include "benchmarks/SpeedTable.h"

#include <juce_events/juce_events.h>

#include <cstdio>
#include <string>

/** kestrel-speed count [BEGINNING]: under callgrind, counts the instructions of the workloads whose name begins so.
    kestrel-speed [COUNTS [MODULE-TIMES]]: the table of times, with the figures of these files. */
int main (int argc, char** argv)
{
    using namespace kestreleq::speed;
    const juce::ScopedJuceInitialiser_GUI framework;
    const auto argument = [=] (int i) { return i < argc ? std::string (argv[i]) : std::string(); };

    if (argument (1) == "count")
    {
        if (countInstructions (argument (2)))
            return 0;

        std::fputs ("kestrel-speed: counting needs valgrind's callgrind around it\n", stderr);
        return 1;
    }

    printTable (readFigures (argument (1)), readFigures (argument (2)));
    printSilence();
    printInstances();
    return 0;
}
