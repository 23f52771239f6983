#pragma once

#include "engine/dsp/Cookbook.h"

#include <complex>

namespace kestreleq::dsp
{

/** The air band's design: a pre-gain and one peaking section, set by a frequency index and an amount.

    The section's centre lies near or above half of the usual sample rates. Where it has to move down, its Q is widened
    so that its lower skirt, the part that is heard, stays the same at every sample rate. */
class AirFilter
{
public:
    static constexpr int numIndices = 5;

    /** Takes the sample rate in Hz and designs. */
    void prepare (double newSampleRate);

    /** 0 to 1, limited; ignored when not finite. At 0 the filter is inactive: the identity. */
    void setAmount (float newAmount);

    /** 0 to 4, limited. At 0 the filter is inactive. */
    void setIndex (int newIndex);

    bool isActive() const { return active; }

    float getAmount() const { return amount; }

    /** Linear, before the section. */
    double getPreGain() const { return preGain; }

    const BiquadCoefficients& getSection() const { return section; }

    /** The transfer function at a frequency in Hz. */
    std::complex<double> response (double frequency) const;

private:
    void design();

    double sampleRate = 0.0;
    int index = 0;
    float amount = 0.0f;
    bool active = false;
    double preGain = 1.0;
    BiquadCoefficients section;
};

/** The index of a 0..1 air step value: the nearest of 0..4, halves away from zero; 2 when the value is not finite. */
int airIndexFor (float value);

} // namespace kestreleq::dsp
