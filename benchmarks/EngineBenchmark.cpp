#include "engine/dsp/EqEngine.h"
#include "tests/support/Signals.h"

#include <benchmark/benchmark.h>

namespace
{

using namespace kestreleq;

enum Mode
{
    clean,
    breakIdle, // on, but nothing drives it
    breakDriven
};

dsp::EngineParameters settingsFor (Mode mode)
{
    dsp::EngineParameters settings;
    settings.breakMode = mode != clean;

    for (auto& lane : settings.lanes)
    {
        const auto value = mode == breakIdle ? 0.25f : 0.8f;
        lane.bands.fill (value);
        lane.airAmount = mode == breakIdle ? 0.05f : 0.8f;
    }

    return settings;
}

/** Time per stereo sample (the items) for a mode and a block size at 48 kHz. */
void engineProcess (benchmark::State& state)
{
    const auto length = static_cast<int> (state.range (1));
    dsp::EqEngine engine;
    engine.prepare (48000.0);
    engine.setParameters (settingsFor (static_cast<Mode> (state.range (0))));
    const auto left = test::whiteNoise (1, length, 0.1), right = test::whiteNoise (2, length, 0.1);
    auto outLeft = left, outRight = right;

    for (auto _ : state)
    {
        outLeft = left;
        outRight = right;
        engine.process (outLeft.data(), outRight.data(), length);
        benchmark::ClobberMemory();
    }

    state.SetItemsProcessed (state.iterations() * length);
}

/** What the rows above have in common: copying a block. */
void plainCopy (benchmark::State& state)
{
    const auto length = static_cast<int> (state.range (0));
    const auto left = test::whiteNoise (1, length), right = test::whiteNoise (2, length);
    auto outLeft = left, outRight = right;

    for (auto _ : state)
    {
        outLeft = left;
        outRight = right;
        benchmark::ClobberMemory();
    }

    state.SetItemsProcessed (state.iterations() * length);
}

BENCHMARK (engineProcess)->ArgsProduct ({ { clean, breakIdle, breakDriven }, { 32, 64, 512, 4096 } });
BENCHMARK (plainCopy)->Arg (64)->Arg (512);

} // namespace
