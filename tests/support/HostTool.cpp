#include "tests/support/HostTool.h"

#include <gtest/gtest.h>

#include <memory>

namespace kestreleq::test
{

HostRun runHost (const juce::StringArray& arguments, HostStream stream)
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

TemporaryFolder::TemporaryFolder()
    : folder (juce::File::createTempFile ("kestrel"))
{
    EXPECT_TRUE (folder.createDirectory());
}

TemporaryFolder::~TemporaryFolder()
{
    folder.deleteRecursively();
}

void writeWav (const juce::File& file, const std::vector<std::vector<float>>& channels, double sampleRate, int bits)
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

WavContent readWav (const juce::File& file)
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
