#include "tools/kestrel-host/WavWriter.h"

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/Paths.h"

#include <bit>
#include <limits>
#include <string_view>
#include <system_error>

namespace kestreleq::host
{
namespace
{

constexpr std::uint32_t channels = 2;
constexpr std::uint32_t frameBytes = channels * sizeof (float);
constexpr std::uint32_t headerBytes = 58;

void addText (std::vector<std::uint8_t>& bytes, std::string_view text)
{
    bytes.insert (bytes.end(), text.begin(), text.end());
}

void addNumber (std::vector<std::uint8_t>& bytes, std::uint32_t number, int size = 4)
{
    for (int i = 0; i < size; ++i)
        bytes.push_back (static_cast<std::uint8_t> (number >> (8 * i)));
}

std::vector<std::uint8_t> header (std::uint32_t sampleRate, std::uint32_t length)
{
    std::vector<std::uint8_t> bytes;
    addText (bytes, "RIFF");
    addNumber (bytes, headerBytes - 8 + length * frameBytes);
    addText (bytes, "WAVEfmt ");
    addNumber (bytes, 18);
    addNumber (bytes, 3, 2); // floating point
    addNumber (bytes, channels, 2);
    addNumber (bytes, sampleRate);
    addNumber (bytes, sampleRate * frameBytes);
    addNumber (bytes, frameBytes, 2);
    addNumber (bytes, 32, 2);
    addNumber (bytes, 0, 2); // no extension
    addText (bytes, "fact");
    addNumber (bytes, 4);
    addNumber (bytes, length);
    addText (bytes, "data");
    addNumber (bytes, length * frameBytes);
    return bytes;
}

/** True for anything but a regular file or a free name: a folder, or a device, which the final move would replace. */
bool isTakenByOtherThing (const juce::File& file)
{
    std::error_code error;
    const auto status = std::filesystem::status (standardPath (file), error);
    return file.isDirectory() || (std::filesystem::exists (status) && ! std::filesystem::is_regular_file (status));
}

} // namespace

WavWriter::WavWriter (const std::string& path, std::uint32_t sampleRate, std::int64_t length)
    : name (path),
      temporary (fileAt (path), juce::TemporaryFile::useHiddenFile)
{
    constexpr auto longest = (std::numeric_limits<std::uint32_t>::max() - headerBytes) / frameBytes;

    if (length > longest)
        throw Failure ("'" + name + "' would be too long for a WAV file");

    if (isTakenByOtherThing (temporary.getTargetFile()))
        fail();

    stream = std::make_unique<juce::FileOutputStream> (temporary.getFile());

    if (stream->failedToOpen())
        fail();

    append (header (sampleRate, static_cast<std::uint32_t> (length)));
}

WavWriter::~WavWriter()
{
    stream.reset(); // an open file cannot be deleted everywhere
}

void WavWriter::write (const float* left, const float* right, int count)
{
    scratch.clear();

    for (int i = 0; i < count; ++i)
    {
        addNumber (scratch, std::bit_cast<std::uint32_t> (left[i]));
        addNumber (scratch, std::bit_cast<std::uint32_t> (right[i]));
    }

    append (scratch);
}

void WavWriter::finish()
{
    const auto size = stream->getPosition();
    stream.reset();

    // The stream does not report a last write that a full disk cut short.
    if (temporary.getFile().getSize() != size || ! temporary.overwriteTargetFileWithTemporary())
        fail();
}

void WavWriter::fail() const
{
    throw Failure ("cannot write '" + name + "'");
}

void WavWriter::append (const std::vector<std::uint8_t>& bytes)
{
    if (! bytes.empty() && ! stream->write (bytes.data(), bytes.size()))
        fail();
}

} // namespace kestreleq::host
