#include "tools/kestrel-host/Commands.h"
#include "tools/kestrel-host/HostedModule.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iostream>

namespace kestreleq::host
{
namespace
{

constexpr float noisePeak = 0.25f;
constexpr double warmUpSeconds = 0.5;
constexpr std::int64_t mostChunks = 101;

/** Runs noise through the module, a block at a time. */
class NoiseRun
{
public:
    NoiseRun (HostedModule& moduleToUse, int blockSize)
        : module (moduleToUse),
          noise (2, std::max (blockSize, 1 << 16)),
          block (2, blockSize)
    {
        juce::Random random (20240607); // the same noise in every run

        for (int channel = 0; channel < 2; ++channel)
            for (int i = 0; i < noise.getNumSamples(); ++i)
                noise.setSample (channel, i, noisePeak * (2.0f * random.nextFloat() - 1.0f));
    }

    /** Processes so many blocks and returns the time that the module took for one sample of both channels, in ns. */
    double measure (std::int64_t numBlocks)
    {
        using Clock = std::chrono::steady_clock;
        Clock::duration spent {};

        for (std::int64_t i = 0; i < numBlocks; ++i)
        {
            fetchNoise();
            const auto start = Clock::now();
            module.process (block);
            spent += Clock::now() - start;
        }

        const auto samples = static_cast<double> (numBlocks) * block.getNumSamples();
        return std::chrono::duration<double, std::nano> (spent).count() / samples;
    }

private:
    void fetchNoise()
    {
        if (position + block.getNumSamples() > noise.getNumSamples())
            position = 0;

        for (int channel = 0; channel < 2; ++channel)
            block.copyFrom (channel, 0, noise, channel, position, block.getNumSamples());

        position += block.getNumSamples();
    }

    HostedModule& module;
    juce::AudioBuffer<float> noise;
    juce::AudioBuffer<float> block;
    int position = 0;
};

std::int64_t blocksIn (double seconds, const BenchOptions& options)
{
    return std::max<std::int64_t> (1, std::llround (std::ceil (seconds * options.rate / options.block)));
}

/** The median over equal stretches of the run, which a busy machine disturbs less than the mean. */
double medianTime (NoiseRun& noiseRun, std::int64_t numBlocks)
{
    const auto numChunks = std::min (mostChunks, numBlocks);
    std::vector<double> times;

    for (std::int64_t chunk = 0; chunk < numChunks; ++chunk)
        times.push_back (noiseRun.measure (numBlocks * (chunk + 1) / numChunks - numBlocks * chunk / numChunks));

    const auto middle = times.begin() + static_cast<std::ptrdiff_t> (times.size() / 2);
    std::nth_element (times.begin(), middle, times.end());
    return *middle;
}

void printJson (double time, const BenchOptions& options)
{
    juce::DynamicObject::Ptr object (new juce::DynamicObject());
    object->setProperty ("nsPerStereoSample", time);
    object->setProperty ("rate", options.rate);
    object->setProperty ("block", options.block);
    object->setProperty ("seconds", options.seconds);
    std::cout << juce::JSON::toString (object.get(), juce::JSON::FormatOptions {}.withMaxDecimalPlaces (3)) << '\n';
}

} // namespace

void run (const BenchOptions& options)
{
    HostedModule module (options.module);

    for (const auto& set : options.sets)
        module.requireParameter (set.id);

    module.prepareStereo (options.rate, options.block);

    for (const auto& set : options.sets)
        module.set (set);

    NoiseRun noiseRun (module, options.block);
    noiseRun.measure (blocksIn (warmUpSeconds, options));
    const auto time = medianTime (noiseRun, blocksIn (options.seconds, options));

    if (options.json)
        printJson (time, options);
    else
        std::cout << juce::String (time, 2) << " ns per stereo sample, " << juce::String (time * options.rate * 1e-7, 3)
                  << " % of real time at " << options.rate << " Hz in blocks of " << options.block << '\n';
}

} // namespace kestreleq::host
