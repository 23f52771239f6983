#pragma once

#include "engine/dsp/EngineParameters.h"
#include "engine/dsp/LaneResponse.h"
#include "ui_pro/controls/chart/ChartAxes.h"

#include <array>
#include <optional>

namespace kestreleq
{

/** The handles on a lane's curve: one per band, and one for air (index 5), which the air frequency moves sideways. */
class ChartNodes
{
public:
    static constexpr std::size_t count = numBands + 1;
    static constexpr std::size_t airNode = numBands;
    static constexpr float radius = 6.0f; // design pixels

    /** Puts every node on the curve, whose points lie evenly on the frequency axis. */
    void place (const quillon::ui_pro::controls::ChartAxes& axes, const dsp::LaneResponse& response, float airStep);

    juce::Point<float> position (std::size_t node) const { return positions[node]; }

    /** The node under the pointer: the nearest within reach. */
    std::optional<std::size_t> hit (juce::Point<float> at) const;

private:
    std::array<juce::Point<float>, count> positions;
};

} // namespace kestreleq
