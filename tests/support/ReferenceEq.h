#pragma once

#include "tests/support/ReferenceParameters.h"

#include <complex>
#include <memory>

namespace kestreleq::test
{
/** The whole audio path written the plain way, sample by sample in long double, to compare the real one with. Only the
    roundings that shape the sound are kept: single-precision section coefficients and the riders' float gain. New
    settings go over as docs/architecture.md has it. */
class ReferenceEq
{
public:
    /** Sample rate in Hz. */
    explicit ReferenceEq (double sampleRate);
    ~ReferenceEq();

    /** One host block of n samples in place; an empty one is not noticed. */
    void process (const ReferenceParameters& parameters, double* left, double* right, int n);

private:
    struct State;
    std::unique_ptr<State> state;
};

/** Output weight of a band (0..4) at a parameter value 0..1. */
long double bandWeight (int band, double value);

/** Frequency response (Hz) of one band filter (0..4), and of the air path with its pre-gain (amount and band as
    parameter values): the analogue prototypes under the bilinear map, with no rounded coefficients. */
std::complex<long double> bandResponse (int band, double frequency, double sampleRate);
std::complex<long double> airResponse (float amount, float airBand, double frequency, double sampleRate);

/** Linear magnitude of lane 0 or 1 in clean mode, without the stage gains and the trim, no bypass regarded. */
double expectedMagnitude (const ReferenceParameters& parameters, int lane, double frequency, double sampleRate);
} // namespace kestreleq::test
