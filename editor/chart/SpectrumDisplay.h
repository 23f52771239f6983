#pragma once

#include "engine/analysis/SpectrumAnalyser.h"

#include <array>
#include <functional>
#include <span>
#include <vector>

namespace kestreleq
{

/** The levels of one lane's live spectra as the eye gets them: they rise at once and fall at 24 dB per second. Input is
    trace 0, output trace 1. Message thread. */
class SpectrumDisplay
{
public:
    static constexpr std::size_t numTraces = analysis::SpectrumAnalyser::numSlots;
    static constexpr std::size_t maxBins = 512;
    static constexpr float floorLevel = -84.0f; // dB: what is not finite, and the lowest level that is drawn

    SpectrumDisplay();

    /** Takes the analyser's curves as its last update left them, silence for one that has none. True when anything that
        is drawn has moved. */
    bool refresh (const analysis::SpectrumAnalyser& analyser);

    /** The same for any snapshot: levels in dB at log-spaced bins from 20 Hz to half of the sample rate, in Hz. An
       empty snapshot leaves its trace as it is. */
    bool refresh (const std::array<std::span<const float>, numTraces>& snapshots, double sampleRate);

    /** Shows nothing from now on, without a fall. */
    void clear();

    /** In dB, one per frequency. Empty for a trace that has none of these frequencies yet. */
    std::span<const float> getLevels (std::size_t trace) const { return traces[trace]; }

    /** In Hz, one per bin. */
    std::span<const float> getFrequencies() const { return frequencies; }

    /** In milliseconds; the framework's high-resolution clock unless replaced. */
    std::function<double()> clock;

private:
    bool placeBins (std::size_t count, double sampleRate);

    std::array<std::vector<float>, numTraces> traces;
    std::array<std::vector<float>, numTraces> snapshot; // what the analyser is copied into
    std::vector<float> frequencies;
    double rate = 0.0;
    double lastRefresh = -1.0; // ms; never
};

} // namespace kestreleq
