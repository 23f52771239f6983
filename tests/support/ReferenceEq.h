#pragma once

#include <array>
#include <complex>
#include <memory>
#include <span>
#include <string_view>

namespace kestreleq::test
{
/** The 29 normalised parameter values as a host sees them after its gestures: 32-bit floats in 0..1, stepped ones
    snapped to 0 or 1 (0.5 snaps up), linked pairs copied. Unknown IDs throw std::out_of_range. */
class ReferenceParameters
{
public:
    struct Entry
    {
        std::string_view id;
        float initial;
        bool stepped;
    };

    static constexpr int controlsPerLane = 7; ///< five bands, air amount, air band

    /** All parameters in the host's order; the first seven belong to lane A, the next seven to lane B. */
    static std::span<const Entry> entries();

    ReferenceParameters();

    float get (std::string_view id) const;

    bool isOn (std::string_view id) const { return get (id) >= 0.5f; }

    /** The value that a lane (0 or 1) hears for a control (0..4 bands, 5 air amount, 6 air band), links considered. */
    float laneValue (int lane, int control) const;

    /** One host gesture: the value is clamped and snapped, then linking answers. */
    void set (std::string_view id, float value);

    /** The gestures of choosing a factory program (0..5): every value in the host's order. */
    void selectProgram (int index);

private:
    void store (std::string_view id, float value);

    void copy (std::string_view from, std::string_view to) { store (to, get (from)); }

    std::array<float, 29> values;
};

/** The whole audio path written the plain way, sample by sample in long double, to compare the real one with. Only the
    roundings that shape the sound are kept: single-precision section coefficients and the riders' float gain. */
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
