#pragma once

#include "engine/analysis/DisplayMapping.h"
#include "engine/analysis/SampleRing.h"
#include "engine/analysis/SpectrumEstimator.h"

#include <cstddef>
#include <span>
#include <vector>

namespace kestreleq::analysis
{

/** One curve of an analyser: samples in at one end, a smoothed display curve out at the other. One thread pushes, one
    thread does all else; prepare excludes both. */
class AnalyserSlot
{
public:
    /** Sample rate in Hz; frame length N, a power of two; hop of 1..N samples from one frame to the next. Allocates. */
    void prepare (double sampleRate, std::size_t frameLength, std::size_t newHop, std::size_t numPoints);

    /** The pushing thread; a full ring drops what is newest. */
    void push (const float* samples, std::size_t count) { ring.push (samples, count); }

    /** Analyses what has been pushed and moves the display curve one step: toward the spectrum, or toward silence when
        the slot is not shown. */
    void update (const DisplayMapping& mapping, bool shown);

    /** Forgets the samples that wait, and the curve. */
    void clear();

    /** True once a frame was shown. */
    bool hasData() const { return dataPresent; }

    /** The display curve, in dB per point. */
    std::span<const float> curve() const { return display; }

private:
    bool drain();
    void dropOldest (std::size_t count);

    SampleRing ring;
    std::vector<float> frame;
    std::size_t fill = 0;
    std::size_t hop = 1;
    SpectrumEstimator estimator;
    std::vector<float> latest; // the last spectrum on the display points
    bool dataPresent = false;
    std::vector<float> display;
};

} // namespace kestreleq::analysis
