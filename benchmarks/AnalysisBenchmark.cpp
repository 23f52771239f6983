#include "engine/analysis/SpectrumAnalyser.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace
{

using kestreleq::analysis::SpectrumAnalyser;

constexpr int frameLength = 4096;
constexpr int hop = 1024;
constexpr int numPoints = 512;

/** What the core runs: one analyser per lane. */
struct Analysers
{
    Analysers()
        : noise (8 * frameLength)
    {
        std::mt19937 random (1);

        for (auto& sample : noise)
            sample = static_cast<float> (random()) / 4294967296.0f - 0.5f;

        for (auto& lane : lanes)
        {
            lane.prepare (48000.0, frameLength, hop, numPoints);
            lane.setOn (true);
        }
    }

    void push (int numSamples, float* source)
    {
        for (auto& lane : lanes)
            for (std::size_t slot = 0; slot < SpectrumAnalyser::numSlots; ++slot)
                lane.push (slot, source, numSamples);
    }

    void update()
    {
        for (auto& lane : lanes)
            lane.update();
    }

    std::array<SpectrumAnalyser, 2> lanes;
    std::vector<float> noise;
};

/** Both slots of both analysers, per stereo sample, in blocks; the waiting samples are dropped now and then, outside
    the time taken, so that every push has room. */
void pushStereo (benchmark::State& state, bool on)
{
    Analysers analysers;
    const auto block = static_cast<int> (state.range (0));
    const auto blocksPerRing = 3 * frameLength / block;

    for (auto& lane : analysers.lanes)
        lane.setOn (on);

    for (auto _ : state)
    {
        for (int i = 0; i < blocksPerRing; ++i)
            analysers.push (block, analysers.noise.data());

        state.PauseTiming();

        for (auto& lane : analysers.lanes)
            lane.clear();

        state.ResumeTiming();
    }

    using benchmark::Counter;
    const auto samples = static_cast<double> (state.iterations()) * block * blocksPerRing;
    state.counters["perStereoSample"] = Counter (samples, Counter::kIsRate | Counter::kInvert);
}

BENCHMARK_CAPTURE (pushStereo, on, true)->Arg (64)->Arg (512);
BENCHMARK_CAPTURE (pushStereo, off, false)->Arg (512);

/** One update of both analysers after so many samples in every slot. */
void updateBoth (benchmark::State& state)
{
    Analysers analysers;
    analysers.push (frameLength, analysers.noise.data());
    analysers.update();

    for (auto _ : state)
    {
        state.PauseTiming();
        analysers.push (static_cast<int> (state.range (0)), analysers.noise.data());
        state.ResumeTiming();
        analysers.update();
    }
}

BENCHMARK (updateBoth)
    ->ArgName ("samples")
    ->Arg (0)
    ->Arg (hop)
    ->Arg (4 * frameLength - 1)
    ->Unit (benchmark::kMicrosecond);

/** The same from a tail so quiet that its products are denormal numbers. */
void updateBothNearDenormal (benchmark::State& state)
{
    Analysers analysers;

    for (auto& sample : analysers.noise)
        sample *= 1e-37f;

    for (auto _ : state)
    {
        state.PauseTiming();
        analysers.push (frameLength, analysers.noise.data());
        state.ResumeTiming();
        analysers.update();
    }
}

BENCHMARK (updateBothNearDenormal)->Unit (benchmark::kMicrosecond);

} // namespace
