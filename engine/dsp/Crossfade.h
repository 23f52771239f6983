#pragma once

#include "engine/dsp/SettingsChange.h"

namespace kestreleq::dsp
{

/** A left and a right channel. */
template <typename Sample>
struct StereoPointers
{
    Sample* left;
    Sample* right;
};

/** The way from old to new settings: the new ones' share of the output grows from 0 to 1, in a straight line for values
    and as a raised cosine for switches. Once prepared, for the audio thread alone. */
class Crossfade
{
public:
    /** Sample rate in Hz. */
    void prepare (double sampleRate);

    /** Begins, for a block of that many samples: values take the block, but at least 5 ms; switches take 10 ms. */
    void start (SettingsChange change, int blockLength);

    void stop() { position = length; }

    bool isRunning() const { return position < length; }

    /** Samples until the new settings stand alone. */
    int getRemaining() const { return length - position; }

    /** Takes the next samples of both channels from one signal to the other, in place of the other. Where both agree
        they stay as they are; what is not finite becomes 0. */
    void mix (const StereoPointers<const float>& one, const StereoPointers<float>& other, int numSamples);

private:
    int valueLength = 1;
    int switchLength = 1;
    int length = 0;
    int position = 0;
    bool curved = false;
};

} // namespace kestreleq::dsp
