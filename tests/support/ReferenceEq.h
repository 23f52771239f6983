#pragma once

#include "tests/support/ReferenceEngine.h"
#include "tests/support/ReferenceParameters.h"

#include <optional>

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

    /** One host block of n samples in place; an empty one is not noticed. */
    void process (const ReferenceParameters& parameters, double* left, double* right, int n);

private:
    void read (const ReferenceParameters& parameters);
    void begin (int n);
    void runEngine (double* left, double* right, int n);

    double fs;
    reference::Engine engine;
    std::optional<reference::Engine> outgoing; ///< by the settings before, while the output goes over
    int fadeLength = 0, faded = 0;
    bool cosine = false, first = true;
    reference::Settings wanted;
    reference::Rider inputRider, outputRider;
};
} // namespace kestreleq::test
