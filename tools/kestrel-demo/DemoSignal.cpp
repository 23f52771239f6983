#include "tools/kestrel-demo/DemoSignal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>

namespace kestreleq::demo
{
namespace
{

constexpr double seconds = 10.0;
constexpr double beat = 0.5; // 120 beats per minute

double noteFrequency (int midiNote)
{
    return 440.0 * std::pow (2.0, (midiNote - 69) / 12.0);
}

/** A canvas to put sounds on, each with a place in the stereo picture from 0 (left) to 1 (right). */
class Mix
{
public:
    explicit Mix (double sampleRate)
        : rate (sampleRate)
    {
        for (auto& channel : channels)
            channel.resize (static_cast<std::size_t> (seconds * rate));
    }

    /** Adds sound (time since its start in seconds) from a start time for a duration in seconds. */
    template <typename Sound>
    void add (double start, double duration, double place, Sound&& sound)
    {
        const auto first = static_cast<std::size_t> (start * rate);
        const auto count = static_cast<std::size_t> (duration * rate);

        for (std::size_t n = 0; n < count && first + n < channels[0].size(); ++n)
        {
            const double y = sound (static_cast<double> (n) / rate);
            channels[0][first + n] += static_cast<float> (y * std::sqrt (1.0 - place));
            channels[1][first + n] += static_cast<float> (y * std::sqrt (place));
        }
    }

    std::array<std::vector<float>, 2> channels;

private:
    double rate;
};

double cycles (double turns)
{
    return std::sin (2.0 * std::numbers::pi * turns);
}

/** A sine that falls from 150 to 45 Hz. */
double kick (double t)
{
    return 0.28 * std::exp (-t * 9.0) * cycles (45.0 * t + 105.0 / 25.0 * (1.0 - std::exp (-25.0 * t)));
}

/** A tone with falling harmonics, the higher ones dying sooner. */
double pluck (double t, double frequency, int harmonics, double decay)
{
    double sum = 0.0;

    for (int k = 1; k <= harmonics; ++k)
        sum += cycles (frequency * k * t) * std::exp (-t * decay * (1.0 + 0.3 * k)) / k;

    return sum * std::min (1.0, t * 200.0); // no click at the start
}

} // namespace

std::array<std::vector<float>, 2> makeDemoSignal (double sampleRate)
{
    constexpr std::array<std::array<int, 4>, 4> chords { { { 57, 60, 64, 69 }, { 53, 57, 60, 65 }, { 48, 60, 64, 67 },
        { 55, 59, 62, 67 } } };
    std::mt19937 random (1);
    Mix mix (sampleRate);

    for (int i = 0; i < static_cast<int> (seconds / beat); ++i)
    {
        const auto start = i * beat;
        const auto& chord = chords[static_cast<std::size_t> (i / 4) % chords.size()];

        mix.add (start, 0.4, 0.5, kick);

        const auto bass = noteFrequency (chord[0] - 24);
        mix.add (start, beat, 0.5, [bass] (double t) { return 0.1 * pluck (t, bass, 8, 2.5); });

        if (i % 4 == 0)
            for (std::size_t voice = 0; voice < chord.size(); ++voice)
                mix.add (start, 4.0 * beat, 0.2 + 0.2 * static_cast<double> (voice),
                    [f = noteFrequency (chord[voice])] (double t) { return 0.06 * pluck (t, f, 20, 0.8); });

        for (const auto offset : { 0.25, 0.375 })
        {
            double previous = 0.0; // the difference of white noise has its weight in the treble
            mix.add (start + offset, 0.1, offset == 0.25 ? 0.35 : 0.65,
                [&] (double t)
                {
                    const auto white = static_cast<double> (random()) / 4294967295.0 - 0.5;
                    const auto y = 0.09 * (white - previous) * std::exp (-t * 60.0);
                    previous = white;
                    return y;
                });
        }
    }

    return mix.channels;
}

} // namespace kestreleq::demo
