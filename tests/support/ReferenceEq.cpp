#include "tests/support/ReferenceEq.h"
#include "tests/support/ReferenceEngine.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace kestreleq::test
{
namespace
{
using namespace reference;

struct Rider
{
    double fs;
    Real gainDb = 0.0L;
    Real line = 1.0L; ///< where the applied gain is, or where its way to 0 dB began
    int falling = 0;  ///< samples left of that way

    int wayLength() const { return static_cast<int> (std::lround (0.005 * fs)); }

    void run (double* left, double* right, int n, bool active)
    {
        if (falling == 0 && active)
            return ride (left, right, n);

        if (falling == 0 && line != 1.0L)
            falling = wayLength();

        gainDb = 0.0L;

        for (auto i = 0; i < n && falling > 0; ++i)
        {
            --falling;
            apply (1.0L - (1.0L - line) * falling / wayLength(), left[i], right[i]);
        }

        if (falling == 0)
            line = 1.0L;
    }

    void ride (double* left, double* right, int n)
    {
        Real sum = 0.0L;
        auto counted = 0;

        for (const auto* channel : { left, right })
            for (auto i = 0; i < n; ++i)
                if (std::isfinite (channel[i]))
                {
                    sum += static_cast<Real> (channel[i]) * channel[i];
                    ++counted;
                }

        const auto level = sum > 0.0L ? 10.0L * std::log10 (sum / counted) : -100.0L;

        if (level > -80.0L)
        {
            const auto desired = std::clamp (-18.0L - level, -80.0L, 24.0L);
            const auto reach = 6.0L * n / fs;
            gainDb = std::clamp (desired, gainDb - reach, gainDb + reach);
        }

        const auto from = std::exchange (line, fromDb (gainDb));

        for (auto i = 0; i < n; ++i)
            apply (from + (line - from) * (i + 1) / n, left[i], right[i]);
    }

    /** The gain and its products are single precision by definition. */
    static void apply (Real gain, double& left, double& right)
    {
        for (auto* sample : { &left, &right })
        {
            const auto product = static_cast<float> (*sample) * static_cast<float> (gain);
            *sample = static_cast<double> (std::isfinite (product) ? product : 0.0f);
        }
    }
};
} // namespace

struct ReferenceEq::State
{
    explicit State (double sampleRate)
        : fs (sampleRate),
          engine (fs),
          inputRider { fs >= 8000.0 ? fs : 48000.0 },
          outputRider { inputRider.fs }
    {
    }

    void read (const ReferenceParameters& p);
    void begin (int n);
    void runEngine (double* left, double* right, int n);

    double fs;
    Engine engine;
    std::optional<Engine> outgoing; ///< by the settings before, while the output goes over
    int fadeLength = 0, faded = 0;
    bool cosine = false, first = true;
    Settings wanted;
    Rider inputRider, outputRider;
};

void ReferenceEq::State::read (const ReferenceParameters& p)
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
void ReferenceEq::State::begin (int n)
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

void ReferenceEq::State::runEngine (double* left, double* right, int n)
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
    : state (std::make_unique<State> (sampleRate))
{
}

ReferenceEq::~ReferenceEq() = default;

void ReferenceEq::process (const ReferenceParameters& parameters, double* left, double* right, int n)
{
    if (n < 1)
        return;

    state->read (parameters);
    const auto& now = state->wanted;
    const auto riding = ! (now.bypass || now.lanes[0].bypassed || now.lanes[1].bypassed);
    state->inputRider.run (left, right, n, riding && parameters.isOn ("inAutoGain"));
    state->runEngine (left, right, n);
    state->outputRider.run (left, right, n, riding && parameters.isOn ("outAutoGain"));
}

} // namespace kestreleq::test
