#include "engine/dsp/BreakProcessor.h"

#include <algorithm>
#include <cmath>

namespace kestreleq::dsp
{
namespace
{

constexpr double driveExponent = 3.0;
constexpr double airMixDecibels = -33.0;
constexpr double airGateSeconds = 0.02;
constexpr float airGateThreshold = 0.1f;

constexpr std::array<SectionSettings, 3> airBreakFilter { { highPass (5.0, 0.707),
    { FilterType::highShelf, 8000.0, 0.707, 3.0 }, lowPass (18000.0, 0.707) } };

double coefficient (float value)
{
    return static_cast<double> (value);
}

Waveshaper bandShaper (std::size_t band)
{
    return { coefficient (bandTable[band].shaperSquare), coefficient (bandTable[band].shaperCube), 0.0 };
}

double bandMix (std::size_t band)
{
    return std::pow (10.0, bandTable[band].breakMixExponent);
}

} // namespace

BreakProcessor::BreakProcessor()
    : bandChains { { { bandShaper (0), {}, bandMix (0) }, { bandShaper (1), {}, bandMix (1) },
          { bandShaper (2), {}, bandMix (2) }, { bandShaper (3), {}, bandMix (3) },
          { bandShaper (4), {}, bandMix (4) } } },
      airChain { { coefficient (0.08f), 0.0, coefficient (0.02f) }, {}, std::pow (10.0, airMixDecibels / 20.0) }
{
}

void BreakProcessor::Chain::setDrive (float newSource)
{
    if (newSource == driveSource)
        return;

    driveSource = newSource;
    drive = std::pow (std::clamp (static_cast<double> (newSource), 0.0, 1.0), driveExponent);
}

void BreakProcessor::Chain::reset()
{
    shaper.reset();
    filter.reset();
}

void BreakProcessor::prepare (double sampleRate)
{
    for (std::size_t i = 0; i < numBands; ++i)
        bandChains[i].filter.design (bandTable[i].breakSections(), sampleRate);

    airChain.filter.design (airBreakFilter, sampleRate);
    airGateStep = 1.0 / (airGateSeconds * sampleRate);
    ready = true;
    reset();
}

void BreakProcessor::reset()
{
    for (auto& chain : bandChains)
        chain.reset();

    airChain.reset();
    airGate = 0.0;
}

void BreakProcessor::setDrive (const std::array<float, numBands>& weights, float airAmount)
{
    for (std::size_t i = 0; i < numBands; ++i)
        bandChains[i].setDrive (weights[i]);

    airChain.setDrive (airAmount);
    airGateOpen = airAmount > airGateThreshold;
}

double BreakProcessor::process (const std::array<double, numBands>& bands, double airDifference)
{
    if (! ready)
        return 0.0;

    double sum = 0.0;

    for (std::size_t i = 0; i < numBands; ++i)
        sum += bandChains[i].mix * bandChains[i].process (bands[i]);

    return sum + processAir (airDifference);
}

double BreakProcessor::processAir (double difference)
{
    airGate = airGateOpen ? std::min (1.0, airGate + airGateStep) : std::max (0.0, airGate - airGateStep);

    return airGate > 0.0 ? airChain.process (difference) * airChain.mix * airGate : 0.0;
}

} // namespace kestreleq::dsp
