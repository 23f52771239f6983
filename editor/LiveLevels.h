#pragma once

#include "engine/KestrelProcessor.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

namespace kestreleq
{

/** What the editor shows of the audio that runs: keeps the spectra up to date and hands out the levels for the meters.
    When the host's audio ends, both end with it, instead of standing at what was measured last. Message thread. */
class LiveLevels
{
public:
    using Pair = std::array<float, numLanes>;

    explicit LiveLevels (KestrelProcessor& processorToShow);

    /** Once per tick: takes what the audio thread has left. */
    void update();

    /** Forgets spectra and levels: they belong to settings that are gone. Blocks that have come since the last but one
        update do not. */
    void clear();

    /** Amplitudes as of the last update, by lane. */
    const Pair& getInput() const { return input; }

    const Pair& getOutput() const { return output; }

    /** In milliseconds. */
    std::function<double()> clock = juce::Time::getMillisecondCounterHiRes;

private:
    void measure();
    void clearSpectra();

    KestrelProcessor& processor;
    std::uint32_t seenBlocks;
    bool plays = false;              // there were blocks between the last two updates
    std::optional<double> lastBlock; // ms of the clock, at the update that saw it; none since the start or a clear
    Pair input {};
    Pair output {};
};

} // namespace kestreleq
