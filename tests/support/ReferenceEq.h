#pragma once

#include "tests/support/ReferenceParameters.h"

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
} // namespace kestreleq::test
