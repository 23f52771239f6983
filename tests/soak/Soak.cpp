#include "tests/soak/Soak.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <stdexcept>
#include <string>

namespace kestreleq::test
{
namespace
{

constexpr std::array rates { 8000.0, 22050.0, 44100.0, 48000.0, 88200.0, 96000.0, 192000.0, 384000.0, 768000.0 };
constexpr int greatestBlock = 4096;

// Full scale through two riders at +24 dB, every band, the air and the trim at their greatest comes to 1e5.
constexpr float bound = 1e6f;

} // namespace

bool isFaulty (float out, bool finiteIn, bool anyBypass, bool withinFullScale)
{
    if (! std::isfinite (out))
        return finiteIn || ! anyBypass;

    return withinFullScale && std::abs (out) > bound;
}

Soak::Soak (std::uint32_t seed)
    : random (seed),
      signal (seed + 1),
      states (4),
      curve (600)
{
    for (auto& state : states)
        state = rig.save();

    prepare();
}

void Soak::run (double seconds)
{
    for (const auto end = done.seconds + seconds; done.seconds < end;)
    {
        disturb();
        processBlock();
    }
}

void Soak::prepare()
{
    rate = rates[static_cast<std::size_t> (upTo (static_cast<int> (rates.size())))];
    preparedBlock = 1 + upTo (greatestBlock);
    rig.processor.setRateAndBufferSizeDetails (rate, preparedBlock);
    rig.processor.prepareToPlay (rate, preparedBlock);
    rig.processor.setCapturing (oneIn (2));
    hugeSincePrepare = false;
}

/** What happens between two blocks: mostly automation. */
void Soak::disturb()
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
void Soak::automate (const ParameterInfo& info)
{
    const auto value = static_cast<float> (random() % 1025) / 1024.0f;
    const bool isBypass = juce::String (info.id).containsIgnoreCase ("bypass");
    rig.set (info.id, isBypass && ! oneIn (16) ? 0.0f : value);
}

void Soak::disturbState()
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

void Soak::processBlock()
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

void Soak::check (const Stereo& in, const juce::AudioBuffer<float>& out)
{
    constexpr auto longestWait = 0.0101; // a bypass that was released while another change was under way still is one
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

} // namespace kestreleq::test
