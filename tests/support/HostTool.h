#pragma once

#include <juce_audio_formats/juce_audio_formats.h>

#include <gtest/gtest.h>

#include <memory>
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
inline HostRun runHost (const juce::StringArray& arguments, HostStream stream)
{
    juce::StringArray command { KESTREL_HOST_PATH };
    command.addArray (arguments);
    juce::ChildProcess process;

    if (! process.start (command, static_cast<int> (stream)))
        return { -1, "cannot start " KESTREL_HOST_PATH };

    auto text = process.readAllProcessOutput();
    const bool ended = process.waitForProcessToFinish (60000);
    return { ended ? static_cast<int> (process.getExitCode()) : -1, text };
}

/** A folder that goes with this object. */
struct TemporaryFolder
{
    TemporaryFolder() { EXPECT_TRUE (folder.createDirectory()); }

    ~TemporaryFolder() { folder.deleteRecursively(); }

    TemporaryFolder (const TemporaryFolder&) = delete;
    TemporaryFolder& operator= (const TemporaryFolder&) = delete;

    juce::String path (const juce::String& name) const { return folder.getChildFile (name).getFullPathName(); }

    const juce::File folder { juce::File::createTempFile ("kestrel") };
};

/** Any number of channels of the same length; 16, 24 or 32 bits, the last as floats. */
inline void writeWav (
    const juce::File& file, const std::vector<std::vector<float>>& channels, double sampleRate, int bits)
{
    const auto count = static_cast<unsigned> (channels.size());
    file.deleteFile(); // the framework would append
    auto stream = file.createOutputStream();
    ASSERT_NE (stream, nullptr);
    const std::unique_ptr<juce::AudioFormatWriter> writer (
        juce::WavAudioFormat().createWriterFor (stream.release(), sampleRate, count, bits, {}, 0));
    ASSERT_NE (writer, nullptr);

    std::vector<const float*> pointers;
    for (const auto& channel : channels)
        pointers.push_back (channel.data());

    ASSERT_TRUE (writer->writeFromFloatArrays (
        pointers.data(), static_cast<int> (count), static_cast<int> (channels.front().size())));
}

struct WavContent
{
    std::vector<std::vector<float>> channels;
    double sampleRate;
    int bits;
    bool isFloat;
};

/** Nothing but a failed expectation when the file is no WAV. */
inline WavContent readWav (const juce::File& file)
{
    auto stream = file.createInputStream();
    const std::unique_ptr<juce::AudioFormatReader> reader (
        stream == nullptr ? nullptr : juce::WavAudioFormat().createReaderFor (stream.release(), true));
    EXPECT_NE (reader, nullptr) << file.getFullPathName();

    if (reader == nullptr)
        return {};

    const auto length = static_cast<int> (reader->lengthInSamples);
    WavContent content { {}, reader->sampleRate, static_cast<int> (reader->bitsPerSample),
        reader->usesFloatingPointData };
    juce::AudioBuffer<float> audio (static_cast<int> (reader->numChannels), length);
    EXPECT_TRUE (reader->read (&audio, 0, length, 0, true, true));

    for (int i = 0; i < audio.getNumChannels(); ++i)
        content.channels.emplace_back (audio.getReadPointer (i), audio.getReadPointer (i) + length);

    return content;
}

} // namespace kestreleq::test
