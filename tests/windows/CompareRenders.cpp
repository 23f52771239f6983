// kestrel-compare-renders A.wav B.wav LIMIT : prints how far two renders are apart, in dB of A's peak Fails above the
// limit, and for renders of another rate or length, or of silence.

#include "tests/support/Signals.h"
#include "tools/kestrel-host/WavReader.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

/** The left channel, then the right one. */
std::vector<float> read (kestreleq::host::WavReader& reader)
{
    const auto length = static_cast<std::size_t> (reader.length());
    std::vector<float> samples (2 * length);
    reader.read (samples.data(), samples.data() + length, static_cast<int> (length));
    return samples;
}

double differenceDb (const std::string& pathA, const std::string& pathB)
{
    kestreleq::host::WavReader a (pathA), b (pathB);
    const auto expected = read (a), actual = read (b);

    if (a.sampleRate() != b.sampleRate() || a.length() != b.length())
        throw std::runtime_error ("'" + pathB + "' has another rate or length than '" + pathA + "'");

    if (kestreleq::test::peak (expected) < 1e-3)
        throw std::runtime_error ("'" + pathA + "' is silent");

    return kestreleq::test::differenceDb (actual, expected);
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
        std::printf (std::isinf (difference) && alike ? "no difference" : "%.1f dB%s", difference,
            alike ? "" : ": too far apart");
        return alike ? 0 : 1;
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "kestrel-compare-renders: %s\n", error.what());
        return 2;
    }
}
