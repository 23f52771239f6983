#include "engine/dsp/LaneResponse.h"

#include "engine/dsp/BandWeights.h"
#include "engine/dsp/BiquadDesigner.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestreleq::dsp
{

void LaneResponse::prepare (double sampleRate, std::vector<double> newFrequencies)
{
    const auto responsesOf = [&] (const SectionSettings& settings, auto&& assign)
    {
        if (const auto section = designSection (settings, sampleRate))
            for (std::size_t i = 0; i < frequencies.size(); ++i)
                assign (points[i], responseAt (*section, frequencies[i], sampleRate));
    };

    frequencies = std::move (newFrequencies);
    points.assign (frequencies.size(), {});
    curve.resize (frequencies.size());

    for (std::size_t band = 0; band < numBands; ++band)
        responsesOf (bandTable[band].filter, [band] (Point& point, auto response) { point.bands[band] = response; });

    responsesOf (outputFilterSettings, [] (Point& point, auto response) { point.output = response; });

    air.prepare (sampleRate);
    compute();
}

bool LaneResponse::setParameters (const LaneParameters& next)
{
    if (next.bands == parameters.bands && next.airAmount == parameters.airAmount && next.airStep == parameters.airStep)
        return false;

    parameters = next;
    compute();
    return true;
}

void LaneResponse::compute()
{
    air.setAmount (parameters.airAmount);
    air.setIndex (airIndexFor (parameters.airStep));

    std::array<double, numBands> weights;
    for (std::size_t band = 0; band < numBands; ++band)
        weights[band] = piecewiseLinear (bandTable[band].weights, static_cast<double> (parameters.bands[band]));

    for (std::size_t i = 0; i < points.size(); ++i)
    {
        auto sum = air.response (frequencies[i]);

        for (std::size_t band = 0; band < numBands; ++band)
            sum += weights[band] * points[i].bands[band];

        curve[i] = 20.0 * std::log10 (std::max (std::abs (sum * points[i].output), 1e-6));
    }
}

} // namespace kestreleq::dsp
