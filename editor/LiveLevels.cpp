#include "editor/LiveLevels.h"

#include "engine/dsp/LevelMeasure.h"

#include <cmath>
#include <utility>

namespace kestreleq
{
namespace
{

constexpr double longestPause = 200.0; // ms without a block while the audio runs

/** What a meter takes for a level in dB; silence must not light it. */
float amplitudeFor (float level)
{
    return level <= dsp::silenceLevel ? 0.0f : std::pow (10.0f, level / 20.0f);
}

LiveLevels::Pair amplitudesFor (const LiveLevels::Pair& levels)
{
    return { amplitudeFor (levels[0]), amplitudeFor (levels[1]) };
}

} // namespace

LiveLevels::LiveLevels (KestrelProcessor& processorToShow)
    : processor (processorToShow),
      seenBlocks (processorToShow.getNumBlocks())
{
}

void LiveLevels::update()
{
    for (std::size_t lane = 0; lane < numLanes; ++lane)
        processor.getCore().getAnalyser (lane).update();

    const auto blocksBefore = std::exchange (seenBlocks, processor.getNumBlocks());
    plays = blocksBefore != seenBlocks;

    if (plays)
        lastBlock = clock();

    measure();
}

void LiveLevels::clear()
{
    clearSpectra();

    if (! plays)
        lastBlock.reset();

    measure();
}

void LiveLevels::measure()
{
    const bool isSilent = ! lastBlock || clock() - *lastBlock >= longestPause;
    input = isSilent ? Pair {} : amplitudesFor (processor.getInputLevels());
    output = isSilent ? Pair {} : amplitudesFor (processor.getOutputLevels());

    if (isSilent)
        clearSpectra();
}

void LiveLevels::clearSpectra()
{
    for (std::size_t lane = 0; lane < numLanes; ++lane)
        processor.getCore().getAnalyser (lane).clear();
}

} // namespace kestreleq
