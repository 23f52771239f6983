#include "tools/kestrel-host/WavReader.h"

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/Paths.h"

#include <array>
#include <bit>

namespace kestreleq::host
{
namespace
{

constexpr std::uint32_t highestRate = 768000;

constexpr std::uint16_t integerTag = 1;
constexpr std::uint16_t floatTag = 3;
constexpr std::uint16_t extensibleTag = 0xfffe;

std::uint16_t number16 (const std::uint8_t* bytes)
{
    return juce::ByteOrder::littleEndianShort (bytes);
}

std::uint32_t number32 (const std::uint8_t* bytes)
{
    return juce::ByteOrder::littleEndianInt (bytes);
}

constexpr std::uint32_t chunkId (const char (&text)[5])
{
    std::uint32_t id = 0;

    for (auto i = 4u; i-- > 0;)
        id = (id << 8) | static_cast<std::uint8_t> (text[i]);

    return id;
}

} // namespace

WavReader::WavReader (const std::string& path)
    : name (path)
{
    const auto file = fileAt (path);

    if (! file.existsAsFile())
        fail (file.isDirectory() ? "is a folder" : "does not exist");

    auto input = std::make_unique<juce::FileInputStream> (file);

    if (input->failedToOpen())
        fail ("cannot be opened");

    stream = std::make_unique<juce::BufferedInputStream> (input.release(), 1 << 16, true);
    readHeader();
}

void WavReader::read (float* left, float* right, int count)
{
    const auto frameBytes = channels * sampleBytes;
    scratch.resize (static_cast<std::size_t> (count) * frameBytes);
    readBytes (scratch.data(), scratch.size());

    for (int i = 0; i < count; ++i)
    {
        const auto* frame = scratch.data() + static_cast<std::size_t> (i) * frameBytes;
        left[i] = decode (frame);
        right[i] = channels == 2 ? decode (frame + sampleBytes) : left[i];
    }
}

void WavReader::fail (const std::string& what) const
{
    throw Failure ("'" + name + "' " + what);
}

void WavReader::readHeader()
{
    std::array<std::uint8_t, 12> start {};

    if (stream->read (start.data(), 12) != 12 || number32 (start.data()) != chunkId ("RIFF") ||
        number32 (start.data() + 8) != chunkId ("WAVE"))
        fail ("is not a WAV file");

    for (;;)
    {
        if (stream->getTotalLength() - stream->getPosition() < 8)
            fail ("is truncated: it has no audio data");

        const auto id = readNumber();
        const auto size = readNumber();

        if (size > stream->getTotalLength() - stream->getPosition())
            fail ("is truncated: a chunk is shorter than its header says");

        if (id == chunkId ("data"))
        {
            if (channels == 0)
                fail ("is not a valid WAV file: it has no format chunk before its data");

            if (size % (channels * sampleBytes) != 0)
                fail ("is truncated: its data ends within a sample");

            numFrames = size / (channels * sampleBytes);
            return;
        }

        const auto next = stream->getPosition() + size + (size & 1); // chunks start at even positions

        if (id == chunkId ("fmt "))
            readFormat (size);

        stream->setPosition (next);
    }
}

void WavReader::readFormat (std::uint32_t size)
{
    std::array<std::uint8_t, 26> format {};

    if (size < 16)
        fail ("is not a valid WAV file: its format chunk is too short");

    readBytes (format.data(), std::min<std::size_t> (size, format.size()));

    auto tag = number16 (format.data());

    if (tag == extensibleTag && size >= format.size())
        tag = number16 (format.data() + 24); // the first two bytes of the subformat

    const auto bits = number16 (format.data() + 14);

    if (tag == integerTag && bits == 16)
        encoding = Encoding::integer16;
    else if (tag == integerTag && bits == 24)
        encoding = Encoding::integer24;
    else if (tag == integerTag && bits == 32)
        encoding = Encoding::integer32;
    else if (tag == floatTag && bits == 32)
        encoding = Encoding::float32;
    else
        fail ("has samples that are neither 16, 24 or 32-bit integer nor 32-bit float");

    channels = number16 (format.data() + 2);
    rate = number32 (format.data() + 4);
    sampleBytes = bits / 8u;

    if (channels < 1 || channels > 2)
        fail ("has " + std::to_string (channels) + " channels; only mono and stereo are read");

    if (rate < 1 || rate > highestRate)
        fail ("has a sample rate of " + std::to_string (rate) + " Hz; 1 to " + std::to_string (highestRate) +
            " are read");

    if (number16 (format.data() + 12) != channels * sampleBytes)
        fail ("is not a valid WAV file: its frame size is wrong");
}

void WavReader::readBytes (void* destination, std::size_t count)
{
    if (count > 0 && stream->read (destination, static_cast<int> (count)) != static_cast<int> (count))
        fail ("cannot be read");
}

std::uint32_t WavReader::readNumber()
{
    std::array<std::uint8_t, 4> bytes {};
    readBytes (bytes.data(), bytes.size());
    return number32 (bytes.data());
}

float WavReader::decode (const std::uint8_t* bytes) const
{
    switch (encoding)
    {
        case Encoding::integer16:
            return static_cast<float> (static_cast<std::int16_t> (number16 (bytes))) / 32768.0f;

        case Encoding::integer24:
            return static_cast<float> (juce::ByteOrder::littleEndian24Bit (bytes)) / 8388608.0f;

        case Encoding::integer32:
            return static_cast<float> (static_cast<std::int32_t> (number32 (bytes)) / 2147483648.0);

        case Encoding::float32:
            break;
    }

    return std::bit_cast<float> (number32 (bytes));
}

} // namespace kestreleq::host
