#include "tests/support/ReferenceEq.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestreleq::test
{
using namespace reference;

void ReferenceEq::read (const ReferenceParameters& p)
{
    wanted.bypass = p.isOn ("bypass");
    wanted.link = p.isOn ("link");
    wanted.midSide = p.isOn ("msMode") && ! wanted.link;
    wanted.breaking = p.isOn ("breakMode");
    wanted.trim = p.get ("trim");

    for (const auto k : { 0, 1 })
    {
        auto& lane = wanted.lanes[k];
        const auto gain = [&] (const char* linkId, const char* shared, const char* own)
        { return p.get (k == 0 || wanted.link || p.isOn (linkId) ? shared : own); };

        // While a rider sets the level, the stage keeps the gain that it last had.
        if (! p.isOn ("inAutoGain"))
            lane.inputGain = gain ("inGainLink", "inGain1", "inGain2");

        if (! p.isOn ("outAutoGain"))
            lane.outputGain = gain ("outGainLink", "outGain1", "outGain2");

        for (auto i = 0; i < 6; ++i)
            lane.values[i] = p.laneValue (k, i);

        lane.airIndex = airIndexOf (p.laneValue (k, 6));
        lane.bypassed = p.isOn (k == 0 || wanted.link ? "laneABypass" : "laneBBypass");
    }
}

/** Takes the settings at the beginning of a block of n, unless the last ones are still on their way. */
void ReferenceEq::begin (int n)
{
    const auto switched = wanted.switches() != engine.settings.switches();

    if (! first && (outgoing || (! switched && wanted.values() == engine.settings.values())))
        return;

    if (! std::exchange (first, false))
    {
        outgoing = engine;
        cosine = switched;
        faded = 0;
        fadeLength = static_cast<int> (std::lround ((switched ? 0.010 : 0.005) * fs));

        if (! switched)
            fadeLength = std::max (fadeLength, n);
    }

    engine.take (wanted);
}

void ReferenceEq::runEngine (double* left, double* right, int n)
{
    begin (n);

    for (auto i = 0; i < n; ++i)
    {
        const auto now = engine.step (left[i], right[i]);
        auto out = now;

        if (outgoing)
        {
            const auto t = static_cast<Real> (++faded) / fadeLength;
            const auto share = cosine ? 0.5L - 0.5L * std::cos (pi * t) : t;
            const auto then = outgoing->step (left[i], right[i]);
            out.first = then.first * (1.0L - share) + now.first * share;
            out.second = then.second * (1.0L - share) + now.second * share;

            if (faded == fadeLength)
                outgoing.reset();
        }

        left[i] = static_cast<double> (out.first);
        right[i] = static_cast<double> (out.second);
    }
}

ReferenceEq::ReferenceEq (double sampleRate)
    : fs (sampleRate),
      engine (fs),
      inputRider { fs >= 8000.0 ? fs : 48000.0 },
      outputRider { inputRider.fs }
{
}

void ReferenceEq::process (const ReferenceParameters& parameters, double* left, double* right, int n)
{
    if (n < 1)
        return;

    read (parameters);
    const auto& now = wanted;
    const auto riding = ! (now.bypass || now.lanes[0].bypassed || now.lanes[1].bypassed);
    inputRider.run (left, right, n, riding && parameters.isOn ("inAutoGain"));
    runEngine (left, right, n);
    outputRider.run (left, right, n, riding && parameters.isOn ("outAutoGain"));
}

} // namespace kestreleq::test
