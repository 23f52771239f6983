#include "engine/dsp/BiquadDesigner.h"

#include <algorithm>
#include <cmath>

namespace kestreleq::dsp
{
namespace
{

double toSinglePrecision (double value)
{
    return static_cast<double> (static_cast<float> (value));
}

BiquadCoefficients rounded (const BiquadCoefficients& c)
{
    return { toSinglePrecision (c.b0), toSinglePrecision (c.b1), toSinglePrecision (c.b2), toSinglePrecision (c.a1),
        toSinglePrecision (c.a2) };
}

/** Both poles strictly inside the unit circle (the stability triangle of a second-order section). */
bool isStrictlyStable (const BiquadCoefficients& c)
{
    return std::abs (c.a2) < 1.0 && 1.0 + c.a1 + c.a2 > 0.0 && 1.0 - c.a1 + c.a2 > 0.0;
}

bool isFinite (const BiquadCoefficients& c)
{
    return std::isfinite (c.b0) && std::isfinite (c.b1) && std::isfinite (c.b2) && std::isfinite (c.a1) &&
        std::isfinite (c.a2);
}

} // namespace

double designCeiling (double sampleRate)
{
    return std::min (20000.0, sampleRate * 0.45 * 0.5);
}

std::optional<BiquadCoefficients> designSection (const SectionSettings& settings, double sampleRate)
{
    const auto ceiling = designCeiling (sampleRate);

    if (! (ceiling >= 1.0))
        return {};

    const auto exact = cookbookSection (settings.type, std::clamp (settings.frequency, 1.0, ceiling), sampleRate,
        std::clamp (settings.q, 0.01, 100.0), std::clamp (settings.gain, -60.0, 36.0));

    if (! isFinite (exact))
        return {};

    const auto single = rounded (exact);

    return isStrictlyStable (single) ? single : exact;
}

BiquadCoefficients normalisedAt (const BiquadCoefficients& section, double frequency, double sampleRate, double gain)
{
    if (! std::isfinite (sampleRate) || ! std::isfinite (frequency) || sampleRate <= 0.0 || frequency <= 0.0)
        return {};

    const auto scale = std::pow (10.0, gain / 20.0) / std::abs (responseAt (section, frequency, sampleRate));

    if (! std::isfinite (scale))
        return {};

    return { section.b0 * scale, section.b1 * scale, section.b2 * scale, section.a1, section.a2 };
}

} // namespace kestreleq::dsp
