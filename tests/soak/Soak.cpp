#include "tests/soak/SoakSignal.h"
#include "tests/support/ProcessorRig.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <algorithm>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace kestreleq::test
{
namespace
{

constexpr std::array rates { 8000.0, 22050.0, 44100.0, 48000.0, 88200.0, 96000.0, 192000.0, 384000.0, 768000.0 };
constexpr int greatestBlock = 4096;

// Full scale through two riders at +24 dB, every band, the air and the trim at their greatest comes to 1e5.
constexpr float bound = 1e6f;

/** Whether an output sample may be what it is. Only a bypassed lane hands on what is not finite, as it came. */
bool isFaulty (float out, bool finiteIn, bool anyBypass, bool withinFullScale)
{
    if (! std::isfinite (out))
        return finiteIn || ! anyBypass;

    return withinFullScale && std::abs (out) > bound;
}

/** One plug-in through hours of what hosts do, one call after the other and the same calls for the same seed. */
class Soak
{
public:
    Soak (std::uint32_t seed)
        : random (seed),
          signal (seed + 1),
          states (4),
          curve (600)
    {
        for (auto& state : states)
            state = rig.save();

        prepare();
    }

    /** Goes on for so many seconds of audio. Throws std::runtime_error when the output is wrong. */
    void run (double seconds)
    {
        for (const auto end = done.seconds + seconds; done.seconds < end;)
        {
            disturb();
            processBlock();
        }
    }

    struct Report
    {
        double seconds = 0.0; // of audio
        std::uint64_t blocks = 0;
        std::uint64_t hash = 0xcbf29ce484222325u; // of every sample that came out
        float peak = 0.0f;                        // where the input was within full scale
    };

    const Report& report() const { return done; }

private:
    int upTo (int count) { return static_cast<int> (random() % static_cast<unsigned> (count)); }

    bool oneIn (int count) { return upTo (count) == 0; }

    void prepare()
    {
        rate = rates[static_cast<std::size_t> (upTo (static_cast<int> (rates.size())))];
        preparedBlock = 1 + upTo (greatestBlock);
        rig.processor.setRateAndBufferSizeDetails (rate, preparedBlock);
        rig.processor.prepareToPlay (rate, preparedBlock);
        rig.processor.setCapturing (oneIn (2));
        hugeSincePrepare = false;
    }

    /** What happens between two blocks: mostly automation. */
    void disturb()
    {
        if (oneIn (2))
            for (auto count = upTo (4); count > 0; --count)
                automate (parameterTable[random() % numParameters]);

        if (oneIn (16))
            signal.setKind (static_cast<SoakSignal::Kind> (upTo (7)));

        // Huge samples leave filters that take their time to come down.
        hugeSincePrepare |= signal.getKind() == SoakSignal::Kind::huge;

        if (oneIn (hugeSincePrepare ? 50 : 500))
        {
            signal.setKind (SoakSignal::Kind::noise);
            prepare();
        }

        if (oneIn (100))
            disturbState();

        if (oneIn (20))
        {
            auto& analyser = rig.processor.getCore().getAnalyser (random() % numLanes);
            analyser.update();
            analyser.readCurve (random() % 2, curve);
        }
    }

    /** Bypasses are rare, or there would be little to hear. */
    void automate (const ParameterInfo& info)
    {
        const auto value = static_cast<float> (random() % 1025) / 1024.0f;
        const bool isBypass = juce::String (info.id).containsIgnoreCase ("bypass");
        rig.set (info.id, isBypass && ! oneIn (16) ? 0.0f : value);
    }

    void disturbState()
    {
        auto& state = states[random() % states.size()];

        switch (upTo (6))
        {
            case 0:
                rig.processor.setCurrentProgram (upTo (7));
                break;

            case 1:
                state = rig.save();
                break;

            case 2:
                rig.restore (state);
                break;

            case 3:
            {
                auto damaged = state;
                for (auto count = 1 + upTo (8); count > 0; --count)
                    damaged[upTo (static_cast<int> (damaged.getSize()))] = static_cast<char> (random() % 256);
                rig.processor.setStateInformation (damaged.getData(), upTo (static_cast<int> (damaged.getSize()) + 1));
                break;
            }

            case 4:
                rig.processor.getCore().getHistory().undo();
                break;

            case 5:
                rig.processor.getCore().getHistory().redo();
                break;
        }
    }

    void processBlock()
    {
        const auto length = oneIn (50) ? 0 : upTo (oneIn (50) ? 2 * greatestBlock : preparedBlock + 1);
        const auto numChannels = oneIn (50) ? 1 : 2;
        Stereo in;

        for (auto& channel : in)
        {
            channel.resize (static_cast<std::size_t> (length));
            std::generate (channel.begin(), channel.end(), [this] { return signal.next(); });
        }

        auto samples = in;
        float* channels[] = { samples[0].data(), samples[1].data() };
        juce::AudioBuffer<float> buffer (channels, numChannels, length);
        rig.processor.processBlock (buffer, rig.midi);
        check (in, buffer);
        done.seconds += length / rate;
        ++done.blocks;
    }

    void check (const Stereo& in, const juce::AudioBuffer<float>& out)
    {
        constexpr auto longestWait =
            0.0101; // a bypass that was released while another change was under way still is one
        const bool isBypassSet =
            rig.get ("bypass") >= 0.5f || rig.get ("laneABypass") >= 0.5f || rig.get ("laneBBypass") >= 0.5f;
        const bool anyBypass = isBypassSet || sinceBypass < longestWait;
        sinceBypass = isBypassSet ? 0.0 : sinceBypass + out.getNumSamples() / rate;

        for (int channel = 0; channel < out.getNumChannels(); ++channel)
        {
            for (int i = 0; i < out.getNumSamples(); ++i)
            {
                const auto n = static_cast<std::size_t> (i);
                const auto sample = out.getSample (channel, i);
                const bool finiteIn = std::isfinite (in[0][n]) && std::isfinite (in[1][n]);

                if (isFaulty (sample, finiteIn, anyBypass, ! hugeSincePrepare))
                    throw std::runtime_error ("block " + std::to_string (done.blocks) + " at " + std::to_string (rate) +
                        " Hz: sample " + std::to_string (i) + " of channel " + std::to_string (channel) + " is " +
                        std::to_string (sample));

                if (! hugeSincePrepare && std::isfinite (sample))
                    done.peak = std::max (done.peak, std::abs (sample));

                done.hash = (done.hash ^ std::bit_cast<std::uint32_t> (sample)) * 0x100000001b3u;
            }
        }
    }

    std::mt19937 random;
    SoakSignal signal;
    ProcessorRig rig;
    std::vector<juce::MemoryBlock> states;
    std::vector<float> curve;
    double rate = 48000.0;
    int preparedBlock = 512;
    bool hugeSincePrepare = false;
    double sinceBypass = 1.0; // seconds since a bypass was set
    Report done;
};

constexpr double greatestGrowth = 4.0; // MiB; what the allocator keeps for itself varies

double residentMegabytes()
{
    long total = 0, resident = 0;
    std::ifstream ("/proc/self/statm") >> total >> resident;
    return static_cast<double> (resident) * static_cast<double> (::sysconf (_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

/** A check that can find nothing would let every run pass. */
bool checksCanFail()
{
    constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
    return isFaulty (nan, true, true, true) && isFaulty (nan, false, false, true) &&
        ! isFaulty (nan, false, true, true) && isFaulty (2e6f, true, false, true) &&
        ! isFaulty (2e6f, true, false, false);
}

int soak (double seconds, std::uint32_t seed)
{
    Soak run (seed);
    run.run (seconds * 0.2);
    const auto before = residentMegabytes();
    run.run (seconds * 0.8);
    const auto growth = residentMegabytes() - before;
    const auto& report = run.report();

    std::printf ("%.0f s of audio, seed %" PRIu32 ": %" PRIu64 " blocks, peak %.3g, hash %016" PRIx64 "\n", seconds,
        seed, report.blocks, static_cast<double> (report.peak), report.hash);
    std::fprintf (stderr, "memory after a fifth of it: %.1f MiB, at the end %+.1f MiB\n", before, growth);

    if (growth <= greatestGrowth)
        return 0;

    std::fprintf (stderr, "kestrel-soak: the memory in use has grown\n");
    return 1;
}

} // namespace
} // namespace kestreleq::test

/** kestrel-soak [SECONDS [SEED]] */
int main (int argc, char** argv)
{
    const auto seconds = argc > 1 ? std::atof (argv[1]) : 600.0;
    const auto seed = argc > 2 ? std::strtoul (argv[2], nullptr, 10) : 1;

    if (argc > 3 || ! (seconds > 0.0))
    {
        std::fprintf (stderr, "usage: kestrel-soak [SECONDS [SEED]]\n");
        return 2;
    }

    if (! kestreleq::test::checksCanFail())
    {
        std::fprintf (stderr, "kestrel-soak: its checks find nothing\n");
        return 1;
    }

    try
    {
        const juce::ScopedJuceInitialiser_GUI framework;
        return kestreleq::test::soak (seconds, static_cast<std::uint32_t> (seed));
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "kestrel-soak: %s\n", error.what());
        return 1;
    }
}
