#pragma once

#include <juce_core/juce_core.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kestreleq::host
{

/** Reads a WAV file from start to end: 16, 24 or 32-bit integer or 32-bit float samples, mono or stereo, any rate up to
    768 kHz. Stricter than the framework's reader, which plays what is left of a damaged file. */
class WavReader
{
public:
    /** Opens the file and checks its header against its size. Throws Failure, which names the file. */
    explicit WavReader (const std::string& path);

    /** In Hz. */
    std::uint32_t sampleRate() const { return rate; }

    /** Samples per channel. */
    std::int64_t length() const { return numFrames; }

    /** Reads the next `count` samples of both channels; a mono file fills both alike. Not more than are left. Throws
        Failure. */
    void read (float* left, float* right, int count);

private:
    enum class Encoding
    {
        integer16,
        integer24,
        integer32,
        float32
    };

    [[noreturn]] void fail (const std::string& what) const;
    void readHeader();
    void readFormat (std::uint32_t size);
    void readBytes (void* destination, std::size_t count);
    std::uint32_t readNumber();
    float decode (const std::uint8_t* bytes) const;

    std::string name;
    std::unique_ptr<juce::InputStream> stream;
    std::vector<std::uint8_t> scratch;
    Encoding encoding = Encoding::float32;
    std::uint32_t rate = 0;
    std::uint32_t channels = 0;
    std::uint32_t sampleBytes = 0;
    std::int64_t numFrames = 0;
};

} // namespace kestreleq::host
