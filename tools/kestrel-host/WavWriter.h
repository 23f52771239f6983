#pragma once

#include <juce_core/juce_core.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kestreleq::host
{

/** Writes a stereo WAV file of 32-bit float samples whose length is known beforehand. It is written beside its final
    place and moved there by `finish`; without that nothing is left behind, and a file already there stays untouched. */
class WavWriter
{
public:
    /** Rate in Hz, length in samples per channel. Throws Failure. */
    WavWriter (const std::string& path, std::uint32_t sampleRate, std::int64_t length);

    ~WavWriter();

    /** Appends `count` samples of both channels. Throws Failure. */
    void write (const float* left, const float* right, int count);

    /** Completes the file and puts it into its place. Throws Failure. */
    void finish();

private:
    [[noreturn]] void fail() const;
    void append (const std::vector<std::uint8_t>& bytes);

    std::string name;
    juce::TemporaryFile temporary;
    std::unique_ptr<juce::FileOutputStream> stream;
    std::vector<std::uint8_t> scratch;

    JUCE_DECLARE_NON_COPYABLE (WavWriter)
};

} // namespace kestreleq::host
