#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

namespace kestreleq::test
{
namespace
{

/** The levels of a left sine of 0.5 and a right one of `right` (1 kHz, whole periods), flat apart from the lift. */
struct LevelRig : ProcessorRig
{
    void run (float right)
    {
        signal = { sine (1000.0, 48000.0, 4800, 0.5), sine (1000.0, 48000.0, 4800, static_cast<double> (right)) };
        process (signal, 4800);
    }

    Stereo signal;
};

double toDb (double amplitude)
{
    return 20.0 * std::log10 (amplitude / std::numbers::sqrt2);
}

TEST (Processor, MeasuresLevelsByMode)
{
    LevelRig rig;
    rig.run (0.25f);
    EXPECT_NEAR (rig.processor.getInputLevels()[0], toDb (0.375), 1e-3);
    EXPECT_EQ (rig.processor.getInputLevels()[0], rig.processor.getInputLevels()[1]);
    EXPECT_NEAR (rig.processor.getOutputLevels()[0], rmsDb (rig.signal[0]) - toDb (0.5) + toDb (0.375), 1e-2);

    rig.set ("link", 0.0f);
    rig.run (0.25f);
    EXPECT_NEAR (rig.processor.getInputLevels()[0], toDb (0.5), 1e-3);
    EXPECT_NEAR (rig.processor.getInputLevels()[1], toDb (0.25), 1e-3);
    EXPECT_NEAR (rig.processor.getCorrelation(), 1.0f, 1e-6f);

    rig.set ("msMode", 1.0f);
    rig.run (0.25f);
    EXPECT_NEAR (rig.processor.getInputLevels()[0], toDb (0.375), 1e-3);
    EXPECT_NEAR (rig.processor.getInputLevels()[1], toDb (0.125), 1e-3);

    rig.run (-0.5f);
    EXPECT_EQ (rig.processor.getInputLevels()[0], -120.0f);
    EXPECT_NEAR (rig.processor.getCorrelation(), -1.0f, 1e-6f);

    float* noSamples[] = { nullptr, nullptr };
    juce::AudioBuffer<float> empty (noSamples, 2, 0);
    rig.midi.addEvent (juce::MidiMessage::noteOn (1, 60, 1.0f), 0);
    rig.processor.processBlock (empty, rig.midi);
    EXPECT_NEAR (rig.processor.getInputLevels()[1], toDb (0.5), 1e-3) << "an empty block measures nothing";
    EXPECT_TRUE (rig.midi.isEmpty());

    LevelRig oneSided;
    oneSided.run (0.0f);
    EXPECT_EQ (oneSided.processor.getCorrelation(), 0.0f);

    // What is not finite, and what is quieter than silence counts, reads as silence.
    rig.signal = { std::vector<float> (64, std::numeric_limits<float>::infinity()), std::vector<float> (64, 1e-9f) };
    rig.set ("msMode", 0.0f);
    rig.process (rig.signal);
    EXPECT_EQ (rig.processor.getInputLevels()[0], -120.0f);
    EXPECT_EQ (rig.processor.getInputLevels()[1], -120.0f);
}

TEST (Processor, TakesMonoThroughBothLanes)
{
    const auto noise = whiteNoise (11, 512, 0.25);
    ProcessorRig mono (48000.0, 256), stereo (48000.0, 256);

    for (auto* rig : { &mono, &stereo })
    {
        rig->set ("sub", 0.9f);
        rig->set ("breakMode", 1.0f);
        rig->set ("inAutoGain", 1.0f);
        rig->set ("outAutoGain", 1.0f);
    }

    Stereo expected { noise, noise };
    stereo.process (expected, 256);

    auto actual = noise;
    for (const int start : { 0, 256 })
    {
        float* channel[] = { actual.data() + start };
        juce::AudioBuffer<float> buffer (channel, 1, 256);
        mono.processor.processBlock (buffer, mono.midi);
    }
    EXPECT_EQ (actual, expected[0]);
    EXPECT_EQ (mono.processor.getCorrelation(), 0.0f) << "there is nothing to compare";

    // Beyond the prepared size there is no second channel: silence.
    std::vector<float> tooLong (300, 0.25f);
    float* channel[] = { tooLong.data() };
    juce::AudioBuffer<float> buffer (channel, 1, 300);
    mono.processor.processBlock (buffer, mono.midi);
    EXPECT_NE (tooLong[255], 0.0f);
    for (std::size_t n = 256; n < 300; ++n)
        EXPECT_EQ (tooLong[n], 0.0f);
}

TEST (Processor, LinkedLanesSoundAlikeWhateverIsStoredForLaneB)
{
    const auto noise = whiteNoise (7, 4800, 0.25);

    for (const float link : { 1.0f, 0.0f })
    {
        ProcessorRig rig;
        const ParameterLinks::ScopedPause asStored (rig.processor.getCore().getLinks());
        rig.set ("link", link);
        for (const auto* id : { "inGain2", "outGain2" })
            rig.set (id, 0.9f); // these are linked by switches of their own
        if (link > 0.5f)
            for (const auto* id : { "subR", "2500hzR", "airGainR", "airBandR", "laneBBypass" })
                rig.set (id, 0.9f);

        Stereo signal { noise, noise };
        rig.process (signal);
        EXPECT_EQ (signal[0], signal[1]);

        rig.set ("inGainLink", 0.0f);
        rig.process (signal);
        EXPECT_EQ (signal[0] == signal[1], link > 0.5f);
    }
}

TEST (Processor, FeedsTheAnalysersByMode)
{
    // Left and right are sines of different bins, so that each mix has its own picture.
    const auto peakPoint = [] (ProcessorRig& rig, std::size_t lane, std::size_t slot)
    {
        std::vector<float> curve (512);
        for (int i = 0; i < 200; ++i)
            rig.processor.getCore().getAnalyser (lane).readCurve (slot, curve);
        const auto highest = std::max_element (curve.begin(), curve.end());
        return std::pair { static_cast<int> (highest - curve.begin()), *highest };
    };
    const auto run = [&] (float link, float midSide, const char* autoGain = "msMode", double right = 6000.0)
    {
        auto rig = std::make_unique<ProcessorRig> (48000.0, 100);
        rig->set (autoGain, 1.0f);
        rig->set ("link", link);
        rig->set ("msMode", midSide);
        Stereo early { sine (1500.0, 48000.0, 64000, 0.5), sine (right, 48000.0, 64000, 0.25) };
        Stereo signal { sine (1500.0, 48000.0, 16000, 0.5), sine (right, 48000.0, 16000, 0.25) };
        rig->process (early, 700); // longer than prepared; time for a rider to settle
        rig->processor.setCapturing (true);
        rig->process (signal, 700);
        return rig;
    };
    const auto point = [] (double frequency)
    { return static_cast<int> (512.0 * std::log (frequency / 20.0) / std::log (1200.0)); };
    const auto low = point (1500.0), high = point (6000.0);

    for (const std::size_t slot : { 0u, 1u })
    {
        auto rig = run (0.0f, 0.0f);
        EXPECT_NEAR (peakPoint (*rig, 0, slot).first, low, 2);
        EXPECT_NEAR (peakPoint (*rig, 0, slot).second, -6.0f, 0.5f);
        EXPECT_NEAR (peakPoint (*rig, 1, slot).first, high, 2);

        rig = run (0.0f, 1.0f, "msMode", 1500.0); // one sine for both, or the side would look like the mid
        EXPECT_NEAR (peakPoint (*rig, 0, slot).second, -8.5f, 0.5f);
        EXPECT_NEAR (peakPoint (*rig, 1, slot).second, -18.1f, 0.5f);
        EXPECT_NEAR (peakPoint (*rig, 1, slot).first, low, 2);

        rig = run (1.0f, 1.0f);
        EXPECT_NEAR (peakPoint (*rig, 0, slot).second, -12.0f, 0.5f);
        EXPECT_EQ (peakPoint (*rig, 1, slot).second, -120.0f);

        // Around the riders, not between them; either takes 6.9 dB off this signal.
        for (const auto* autoGain : { "inAutoGain", "outAutoGain" })
        {
            rig = run (0.0f, 0.0f, autoGain);
            EXPECT_NEAR (peakPoint (*rig, 0, slot).second, slot == 0 ? -6.0f : -12.9f, 0.5f) << autoGain;
        }
    }
}

TEST (Processor, TellsTheFooterWhatItKnows)
{
    ProcessorRig rig (96000.0, 128);
    rig.processor.setRateAndBufferSizeDetails (96000.0, 128);
    Stereo noise { whiteNoise (1, 9600), whiteNoise (2, 9600) };
    rig.process (noise, 128);
    juce::AudioBuffer<float> empty (2, 0);
    rig.processor.processBlock (empty, rig.midi);

    const auto telemetry = rig.processor.getFooterTelemetry();
    const auto load = rig.processor.getRenderLoad();
    EXPECT_TRUE (load > 0.0 && load <= 1.0) << load;
    EXPECT_FLOAT_EQ (telemetry.cpuPercent, static_cast<float> (100.0 * load));
    rig.process (noise, 128);
    EXPECT_NE (rig.processor.getRenderLoad(), load) << "every block counts";
    EXPECT_EQ (telemetry.latencySamples, 0);
    EXPECT_EQ (telemetry.oversamplingFactor, 1);
    EXPECT_EQ (telemetry.sampleRate, 96000.0);
}

} // namespace
} // namespace kestreleq::test
