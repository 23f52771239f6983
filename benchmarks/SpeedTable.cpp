#include "benchmarks/SpeedTable.h"

#include "benchmarks/Workload.h"
#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <limits>
#include <memory>

namespace kestreleq::speed
{
namespace
{

using Clock = std::chrono::steady_clock;

constexpr int samplesPerTurn = 16384;
constexpr int numTurns = 25;

template <typename Work>
double nanoseconds (Work&& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::nano> (Clock::now() - start).count();
}

/** The least time per sample of each, all taking turns, so that what disturbs one disturbs the others as well. */
std::vector<double> timesOf (std::vector<NoiseRun>& runs)
{
    std::vector<double> best (runs.size(), std::numeric_limits<double>::max());

    for (int turn = 0; turn < numTurns; ++turn)
        for (std::size_t i = 0; i < runs.size(); ++i)
            best[i] = std::min (
                best[i], nanoseconds ([&] { runs[i].run (samplesPerTurn); }) / runs[i].rounded (samplesPerTurn));

    return best;
}

/** A cell with a number. */
struct Cell
{
    double value;
    int decimals = 1;

    friend std::ostream& operator<< (std::ostream& out, const Cell& cell)
    {
        return out << ' ' << std::fixed << std::setprecision (cell.decimals) << cell.value << " |";
    }
};

/** One line: times (scalar, SSE2, AVX2), counts, how much faster than scalar, and how many plain copies. */
void printLine (
    const std::string& work, int rate, int block, const std::vector<double>& times, double copy, const Figures& counts)
{
    std::cout << "| " << work << " | " << rate / 1000 << " | " << block << " |";

    for (const auto time : times)
        std::cout << Cell { time };

    for (const auto form : forms)
    {
        if (const auto found = counts.find (keyOf (work, nameOf (form), rate, block)); found != counts.end())
            std::cout << Cell { found->second, found->second < 100.0 ? 1 : 0 };
        else
            std::cout << " |";
    }

    for (std::size_t i = 1; i < times.size(); ++i)
        std::cout << Cell { times[0] / times[i] };

    std::cout << Cell { times.back() / copy, 0 } << std::endl;
}

} // namespace

Figures readFigures (const std::string& path)
{
    Figures figures;
    std::ifstream file (path);
    std::string line;

    while (std::getline (file, line))
        if (const auto tab = line.find ('\t'); tab != std::string::npos)
            figures[line.substr (0, tab)] = std::stod (line.substr (tab + 1));

    return figures;
}

void printTable (const Figures& counts, const Figures& moduleTimes)
{
    std::cout << "| | kHz | block | ns scalar | ns SSE2 | ns AVX2 | instr. scalar | instr. SSE2 | instr. AVX2 "
                 "| SSE2 faster by | AVX2 faster by | AVX2 in copies |\n"
                 "|---|---|---|---|---|---|---|---|---|---|---|---|\n";
    std::map<int, double> copies; // by block

    for (const auto task : tasks)
        for (const auto rate : rates)
            for (const auto block : blocks)
            {
                std::vector<NoiseRun> runs;

                for (const auto form : forms)
                    runs.emplace_back (makeWorkload (task, form, rate, block), block);

                runs.emplace_back (makeCopy(), block);
                auto times = timesOf (runs);
                copies[block] = times.back();
                times.pop_back();
                printLine (nameOf (task), rate, block, times, copies[block], counts);
            }

    for (const auto rate : rates)
        for (const auto block : blocks)
        {
            std::vector<double> times;

            for (const auto form : forms)
                if (const auto found = moduleTimes.find (keyOf ("built module", nameOf (form), rate, block));
                    found != moduleTimes.end())
                    times.push_back (found->second);

            if (times.size() == forms.size())
                printLine ("built module", rate, block, times, copies[block], counts);
        }

    for (const auto block : blocks)
        std::cout << "| plain copy | | " << block << " | | |" << Cell { copies[block], 2 } << " | | | | | 1 |\n";
}

void printSilence()
{
    constexpr int block = 512, rate = 48000, blocksPerTurn = 20;
    test::ProcessorRig rig (rate, block);
    rig.processor.setCurrentProgram (4);
    const test::Stereo noise { test::whiteNoise (1, block, 0.9), test::whiteNoise (2, block, 0.9) };
    const test::Stereo silence { std::vector<float> (block), std::vector<float> (block) };
    const auto least = [&] (const test::Stereo& input)
    {
        double best = std::numeric_limits<double>::max();

        for (int i = 0; i < blocksPerTurn; ++i)
        {
            auto audio = input;
            best = std::min (best, nanoseconds ([&] { rig.process (audio, block); }));
        }

        return best / block;
    };

    const auto loud = least (noise);
    double worst = 0.0;

    for (int turn = 0; turn < 10 * rate / (blocksPerTurn * block); ++turn) // ten seconds of dying filters
        worst = std::max (worst, least (silence));

    std::cout << std::fixed << std::setprecision (1) << "\nSilence after loud audio takes " << worst
              << " ns per stereo sample at most, noise " << loud << " ns.\n";
}

void printInstances()
{
    constexpr int numInstances = 100, block = 64, rate = 48000, numBlocks = 300;
    std::vector<std::unique_ptr<test::ProcessorRig>> rigs;
    std::vector<test::Stereo> buffers (numInstances);
    const test::Stereo noise { test::whiteNoise (1, block, 0.1), test::whiteNoise (2, block, 0.1) };

    for (int i = 0; i < numInstances; ++i)
    {
        rigs.push_back (std::make_unique<test::ProcessorRig> (rate, block));
        rigs.back()->processor.setCurrentProgram (i % 6);
    }

    // All instances take turns, block by block, as in a host.
    double best = std::numeric_limits<double>::max();

    for (int n = 0; n < numBlocks; ++n)
        best = std::min (best,
            nanoseconds (
                [&]
                {
                    for (std::size_t i = 0; i < rigs.size(); ++i)
                    {
                        buffers[i] = noise;
                        rigs[i]->process (buffers[i], block);
                    }
                }));

    std::cout << std::fixed << std::setprecision (1) << '\n'
              << numInstances << " instances at 48 kHz in blocks of " << block << " use "
              << 100.0 * best * 1e-9 * rate / block << " % of one core.\n";
}

} // namespace kestreleq::speed
