#pragma once

#include "engine/dsp/SettingsChange.h"

namespace kestreleq::dsp
{

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

    /** The shares of the next samples, as many as asked for. */
    void advance (float* shares, int numSamples);

private:
    int valueLength = 1;
    int switchLength = 1;
    int length = 0;
    int position = 0;
    bool curved = false;
};

/** Goes from one signal to the other by the other's shares, in place of the other. What is not finite becomes 0. */
void mixInto (float* other, const float* one, const float* shares, int numSamples);

} // namespace kestreleq::dsp
