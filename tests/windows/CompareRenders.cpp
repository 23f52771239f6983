// kestrel-compare-renders A.wav B.wav LIMIT : prints how far two renders are apart, in dB of A's peak. Fails above the
// limit, and for renders of another rate or length, or of silence.

#include "tools/kestrel-host/WavReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace
{

constexpr int blockSize = 4096;
constexpr double none = -200.0;

double differenceDb (const std::string& pathA, const std::string& pathB)
{
    kestreleq::host::WavReader a (pathA), b (pathB);

    if (a.sampleRate() != b.sampleRate() || a.length() != b.length())
        throw std::runtime_error ("'" + pathB + "' has another rate or length than '" + pathA + "'");

    std::array<std::array<float, blockSize>, 4> blocks;
    double peak = 0.0, difference = 0.0;

    for (auto left = a.length(); left > 0;)
    {
        const auto count = static_cast<int> (std::min<std::int64_t> (left, blockSize));
        a.read (blocks[0].data(), blocks[1].data(), count);
        b.read (blocks[2].data(), blocks[3].data(), count);
        left -= count;

        for (std::size_t channel = 0; channel < 2; ++channel)
        {
            for (std::size_t i = 0; i < static_cast<std::size_t> (count); ++i)
            {
                const double x = blocks[channel][i], y = blocks[channel + 2][i];

                if (! std::isfinite (x) || ! std::isfinite (y))
                    throw std::runtime_error ("a sample is not finite");

                peak = std::max (peak, std::abs (x));
                difference = std::max (difference, std::abs (x - y));
            }
        }
    }

    if (peak < 1e-3)
        throw std::runtime_error ("'" + pathA + "' is silent");

    return std::max (20.0 * std::log10 (difference / peak), none);
}

} // namespace

int main (int argc, char* argv[])
{
    try
    {
        if (argc != 4)
            throw std::runtime_error ("usage: kestrel-compare-renders A.wav B.wav LIMIT");

        const auto difference = differenceDb (argv[1], argv[2]);
        const bool alike = difference < std::stod (argv[3]);
        std::printf (difference <= none ? "no difference" : "%.1f dB%s", difference, alike ? "" : ": too far apart");
        return alike ? 0 : 1;
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "kestrel-compare-renders: %s\n", error.what());
        return 2;
    }
}
