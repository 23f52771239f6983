#pragma once

#include <juce_audio_formats/juce_audio_formats.h>

#include <array>
#include <vector>

namespace kestreleq::test
{

/** A run of kestrel-host: its exit code, and what it wrote to the one stream that was asked for. */
struct HostRun
{
    int exitCode;
    juce::String text;
};

enum class HostStream
{
    output = juce::ChildProcess::wantStdOut,
    errors = juce::ChildProcess::wantStdErr
};

/** Runs the built tool with these arguments. A run of over a minute counts as exit code -1. */
HostRun runHost (const juce::StringArray& arguments, HostStream stream);

/** A folder that goes with this object. */
struct TemporaryFolder
{
    TemporaryFolder();
    ~TemporaryFolder();

    TemporaryFolder (const TemporaryFolder&) = delete;
    TemporaryFolder& operator= (const TemporaryFolder&) = delete;

    juce::String path (const juce::String& name) const { return folder.getChildFile (name).getFullPathName(); }

    juce::File folder;
};

/** Any number of channels of the same length; 16, 24 or 32 bits, the last as floats. */
void writeWav (const juce::File& file, const std::vector<std::vector<float>>& channels, double sampleRate, int bits);

struct WavContent
{
    std::vector<std::vector<float>> channels;
    double sampleRate;
    int bits;
    bool isFloat;
};

/** Nothing but a failed expectation when the file is no WAV. */
WavContent readWav (const juce::File& file);

} // namespace kestreleq::test
