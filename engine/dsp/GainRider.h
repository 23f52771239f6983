#pragma once

#include "engine/dsp/simd/Kernels.h"

#include <span>

namespace kestreleq::dsp
{

/** An automatic gain that rides the level of all its channels together toward a target, one step per block, at a
    limited rate. It holds still on near-silence. What it applies goes in a straight line from each step to the next.
    Levels and gains in dB. Once prepared, for the audio thread alone. */
class GainRider
{
public:
    /** Another form of the inner loops than the best one is for tests and benchmarks. */
    explicit GainRider (const simd::Kernels& kernelsToUse = simd::bestKernels())
        : kernels (kernelsToUse)
    {
    }

    /** Sample rate in Hz (48000 is taken instead of anything below 8000), 1 to 64 channels. */
    void prepare (double newSampleRate, int newNumChannels);

    /** Target level -60..0 dB, limited; -18 when not finite. */
    void setTarget (double decibels);

    /** Greatest change of the gain in dB per second, 0..60, limited; 6 when not finite. */
    void setRate (double decibelsPerSecond);

    void setFrozen (bool shouldBeFrozen) { frozen = shouldBeFrozen; }

    /** Takes a gain of -80..+24 dB at once, without a line (limited; 0 when not finite). */
    void reset (double decibels = 0.0);

    /** Measures one block of numSamples per channel, moves the gain and applies it in place. A sample that is not
        finite does not count for the level, and leaves as 0. A release that is under way is completed first: the gain
        rides again from the first block that begins after its end. */
    void process (std::span<float* const> channels, int numSamples);

    /** A block in which the gain does not ride: takes it to 0 dB and what is applied there in a straight line over 5
       ms, across blocks. At 0 dB the samples stay untouched. */
    void release (std::span<float* const> channels, int numSamples);

    double getGain() const { return gain; }

    /** The level that the last block was measured at, before the gain; at least -100 dB. */
    double getMeasuredLevel() const { return measuredLevel; }

private:
    double levelOf (std::span<float* const> channels, int numSamples) const;
    void setGain (double decibels);
    void continueRelease (std::span<float* const> channels, int numSamples);

    const simd::Kernels& kernels;

    double sampleRate = 48000.0;
    int numChannels = 2;
    double target = -18.0;
    double rate = 6.0;
    bool frozen = false;
    double gain = 0.0;
    double linear = 1.0;  // of the gain
    double applied = 1.0; // to the last sample; from where a release began while that is under way
    int releaseLength = 1;
    int released = 1; // samples of it
    double measuredLevel = -100.0;
};

} // namespace kestreleq::dsp
