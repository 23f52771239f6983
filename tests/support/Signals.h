#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kestreleq::test
{
/** Uniform noise in -amplitude..amplitude, the same for a seed on every platform. */
std::vector<float> whiteNoise (std::uint32_t seed, int count, double amplitude = 1.0);

/** Frequencies and sample rates in Hz, amplitudes linear; every signal starts at phase 0. */
std::vector<float> sine (double frequency, double sampleRate, int count, double amplitude = 1.0);
std::vector<float> logSweep (double from, double to, double sampleRate, int count, double amplitude = 1.0);

/** Decaying harmonic notes under noise bursts, eight a second; the peak stays below 1. */
std::vector<float> musicalMix (std::uint32_t seed, double sampleRate, int count);

/** Level of the root mean square in dB; minus infinity for silence. */
double rmsDb (std::span<const float> signal);

/** Greatest magnitude; not finite when any sample is not. */
double peak (std::span<const float> signal);

/** Greatest difference over the reference's peak, in dB: minus infinity when equal, infinity when the lengths differ or
    anything is not finite. */
double differenceDb (std::span<const float> signal, std::span<const float> reference);
double differenceDb (std::span<const float> signal, std::span<const double> reference);

/** Amplitude (linear) of the sine at this frequency in Hz; exact over whole periods. */
double binAmplitude (std::span<const float> signal, double frequency, double sampleRate);

/** A signal's samples in double precision. */
std::vector<double> widened (std::span<const float> signal);
} // namespace kestreleq::test
