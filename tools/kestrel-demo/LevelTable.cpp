#include "tools/kestrel-demo/LevelTable.h"

#include "engine/dsp/Cookbook.h"
#include "tools/kestrel-host/WavReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace kestreleq::demo
{
namespace
{

/** Band-pass measures where the equaliser's bands are heard; an octave and a half wide. */
struct Band
{
    const char* name;
    double frequency;
};

constexpr std::array<Band, 6> bands { { { "SUB", 25.0 }, { "40", 60.0 }, { "160", 160.0 }, { "650", 650.0 },
    { "2.5K", 2500.0 }, { "AIR", 12000.0 } } };
constexpr double bandQ = 0.92;

/** A second-order section in transposed direct form II. */
struct Filter
{
    dsp::BiquadCoefficients coefficients;
    double s1 = 0.0, s2 = 0.0;

    double process (double x)
    {
        const auto& [b0, b1, b2, a1, a2] = coefficients;
        const auto y = b0 * x + s1;
        s1 = b1 * x - a1 * y + s2;
        s2 = b2 * x - a2 * y;
        return y;
    }
};

/** Peak, RMS, then the bands. */
using Levels = std::array<double, 2 + bands.size()>;

double decibels (double amplitude)
{
    return 20.0 * std::log10 (std::max (amplitude, 1e-6));
}

Levels measure (const std::string& path)
{
    host::WavReader reader (path);
    const auto rate = static_cast<double> (reader.sampleRate());
    std::array<std::array<Filter, 2>, bands.size()> filters;
    std::array<double, bands.size()> bandSums {};
    double peak = 0.0, sum = 0.0;

    for (std::size_t i = 0; i < bands.size(); ++i)
        for (auto& filter : filters[i])
            filter.coefficients = dsp::cookbookSection (
                dsp::FilterType::bandPass, std::min (bands[i].frequency, 0.4 * rate), rate, bandQ, 0.0);

    std::array<std::vector<float>, 2> block { std::vector<float> (4096), std::vector<float> (4096) };

    for (std::int64_t left = reader.length(); left > 0;)
    {
        const auto count = static_cast<int> (std::min<std::int64_t> (left, 4096));
        reader.read (block[0].data(), block[1].data(), count);
        left -= count;

        for (std::size_t channel = 0; channel < 2; ++channel)
        {
            for (std::size_t n = 0; n < static_cast<std::size_t> (count); ++n)
            {
                const auto x = static_cast<double> (block[channel][n]);
                peak = std::max (peak, std::abs (x));
                sum += x * x;

                for (std::size_t i = 0; i < bands.size(); ++i)
                {
                    const auto y = filters[i][channel].process (x);
                    bandSums[i] += y * y;
                }
            }
        }
    }

    const auto samples = static_cast<double> (std::max<std::int64_t> (1, 2 * reader.length()));
    Levels levels { decibels (peak), decibels (std::sqrt (sum / samples)) };
    std::transform (bandSums.begin(), bandSums.end(), levels.begin() + 2,
        [samples] (double bandSum) { return decibels (std::sqrt (bandSum / samples)); });
    return levels;
}

std::string cell (double level, const double* before)
{
    std::array<char, 40> text {};

    if (before == nullptr)
        std::snprintf (text.data(), text.size(), " %6.1f       ", level);
    else
        std::snprintf (text.data(), text.size(), " %6.1f (%+.1f)", level, level - *before);

    std::string padded = text.data();
    padded.resize (std::max<std::size_t> (padded.size(), 15), ' ');
    return padded;
}

std::string head (const std::string& text, std::size_t width)
{
    auto padded = text;
    padded.resize (std::max (width, text.size()), ' ');
    return padded;
}

} // namespace

std::string levelTable (const std::vector<NamedFile>& files)
{
    auto table = head ("dB", 16);

    for (const auto* name : { "peak", "RMS" })
        table += head (std::string ("   ") + name, 15);

    for (const auto& band : bands)
        table += head (std::string ("   ") + band.name, 15);

    table += '\n';
    Levels before {};

    for (const auto& file : files)
    {
        const bool isFirst = &file == &files.front();
        const auto levels = measure (file.path);
        table += head (file.name, 16);

        if (isFirst)
            before = levels;

        for (std::size_t i = 0; i < levels.size(); ++i)
            table += cell (levels[i], isFirst ? nullptr : &before[i]);

        table += '\n';
    }

    return table;
}

} // namespace kestreleq::demo
