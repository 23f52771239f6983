#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

using namespace kestreleq;

/** The whole processBlock with all metering, per stereo sample (the items), by block size at 48 kHz. */
void processorBlock (benchmark::State& state)
{
    const auto length = static_cast<int> (state.range (0));
    const juce::ScopedJuceInitialiser_GUI framework;
    test::ProcessorRig rig (48000.0, length);
    rig.processor.setCurrentProgram (4);
    const test::Stereo noise { test::whiteNoise (1, length, 0.1), test::whiteNoise (2, length, 0.1) };
    auto signal = noise;

    for (auto _ : state)
    {
        signal = noise;
        rig.process (signal, length);
        benchmark::ClobberMemory();
    }

    state.SetItemsProcessed (state.iterations() * length);
}

void constructSecondInstance (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI framework;
    const KestrelProcessor first;

    for (auto _ : state)
        benchmark::DoNotOptimize (std::make_unique<KestrelProcessor>());
}

BENCHMARK (processorBlock)->Arg (32)->Arg (64)->Arg (512)->Arg (4096);
BENCHMARK (constructSecondInstance)->Unit (benchmark::kMicrosecond);

} // namespace
