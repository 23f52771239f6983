#include "tests/support/Signals.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>

namespace kestreleq::test
{
namespace
{
constexpr double twoPi = 2.0 * std::numbers::pi;
constexpr double infinity = std::numeric_limits<double>::infinity();

/** Uniform in 0..1: the standard's distributions differ between libraries, its generator does not. */
class Random
{
public:
    explicit Random (std::uint32_t seed)
        : generator (seed)
    {
    }

    double next() { return static_cast<double> (generator()) / 4294967296.0; }

private:
    std::mt19937 generator;
};

template <typename Function>
std::vector<float> generate (int count, Function&& sampleAt)
{
    std::vector<float> signal (static_cast<std::size_t> (count));

    for (auto i = 0; i < count; ++i)
        signal[static_cast<std::size_t> (i)] = static_cast<float> (sampleAt (i));

    return signal;
}

/** std::max would drop a sample that is not a number. */
double greater (double greatest, double magnitude)
{
    return std::isfinite (magnitude) ? std::max (greatest, magnitude) : infinity;
}

template <typename Reference>
double difference (std::span<const float> signal, std::span<const Reference> reference)
{
    if (signal.size() != reference.size())
        return infinity;

    auto greatest = 0.0, scale = 0.0;

    for (std::size_t i = 0; i < signal.size(); ++i)
    {
        const auto expected = static_cast<double> (reference[i]);
        greatest = greater (greatest, std::abs (static_cast<double> (signal[i]) - expected));
        scale = greater (scale, std::abs (expected));
    }

    return greatest == 0.0 ? -infinity : std::isfinite (greatest) ? 20.0 * std::log10 (greatest / scale) : infinity;
}
} // namespace

std::vector<float> whiteNoise (std::uint32_t seed, int count, double amplitude)
{
    Random random (seed);
    return generate (count, [&] (int) { return amplitude * (2.0 * random.next() - 1.0); });
}

std::vector<float> sine (double frequency, double sampleRate, int count, double amplitude)
{
    return generate (count, [=] (int i) { return amplitude * std::sin (twoPi * frequency * i / sampleRate); });
}

std::vector<float> logSweep (double from, double to, double sampleRate, int count, double amplitude)
{
    const auto octaves = std::log (to / from);
    const auto seconds = count / sampleRate;
    return generate (count,
        [=] (int i)
        {
            const auto turns = from * seconds / octaves * std::expm1 (octaves * i / count);
            return amplitude * std::sin (twoPi * turns);
        });
}

std::vector<float> musicalMix (std::uint32_t seed, double sampleRate, int count)
{
    Random random (seed);
    const auto noteLength = static_cast<int> (sampleRate / 8.0);
    auto pitch = 0.0;

    return generate (count,
        [&] (int i)
        {
            const auto t = (i % noteLength) / sampleRate;

            if (i % noteLength == 0)
                pitch =
                    55.0 * std::exp2 (std::floor (36.0 * random.next()) / 12.0); // A1 up, three octaves of semitones

            auto note = 0.0;

            for (auto harmonic = 1; harmonic <= 6; ++harmonic)
                note +=
                    std::sin (twoPi * pitch * harmonic * t) * std::exp (-3.0 * harmonic * t) / (harmonic * harmonic);

            const auto burst = (2.0 * random.next() - 1.0) * std::exp (-25.0 * t);
            return 0.45 * note + 0.3 * burst;
        });
}

double rmsDb (std::span<const float> signal)
{
    auto sum = 0.0;

    for (const auto sample : signal)
        sum += static_cast<double> (sample) * static_cast<double> (sample);

    return 10.0 * std::log10 (sum / static_cast<double> (std::max<std::size_t> (1, signal.size())));
}

double peak (std::span<const float> signal)
{
    auto greatest = 0.0;

    for (const auto sample : signal)
        greatest = greater (greatest, std::abs (static_cast<double> (sample)));

    return greatest;
}

double differenceDb (std::span<const float> signal, std::span<const float> reference)
{
    return difference (signal, reference);
}

double differenceDb (std::span<const float> signal, std::span<const double> reference)
{
    return difference (signal, reference);
}

double binAmplitude (std::span<const float> signal, double frequency, double sampleRate)
{
    std::complex<double> sum;

    for (std::size_t i = 0; i < signal.size(); ++i)
        sum += std::polar (static_cast<double> (signal[i]), -twoPi * frequency * static_cast<double> (i) / sampleRate);

    return 2.0 * std::abs (sum) / static_cast<double> (std::max<std::size_t> (1, signal.size()));
}

std::vector<double> widened (std::span<const float> signal)
{
    return { signal.begin(), signal.end() };
}
} // namespace kestreleq::test
