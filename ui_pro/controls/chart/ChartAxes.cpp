#include "ui_pro/controls/chart/ChartAxes.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{

float ChartAxes::xFor (double hz) const
{
    if (! (std::isfinite (hz) && hz > 0.0 && plot.getWidth() > 0.0f))
        return plot.getX();

    const auto share = std::log (std::clamp (hz, lowestHz, highestHz) / lowestHz) / std::log (highestHz / lowestHz);
    return plot.getX() + static_cast<float> (share) * plot.getWidth();
}

double ChartAxes::frequencyAt (float x) const
{
    if (plot.isEmpty())
        return lowestHz;

    const auto share = static_cast<double> ((x - plot.getX()) / plot.getWidth());
    return std::clamp (lowestHz * std::pow (highestHz / lowestHz, share), lowestHz, highestHz);
}

float ChartAxes::yFor (double db) const
{
    if (std::isnan (db) || ! (highestDb > lowestDb))
        return plot.getBottom();

    const auto share = (std::clamp (db, lowestDb, highestDb) - lowestDb) / (highestDb - lowestDb);
    return plot.getY() + static_cast<float> (1.0 - share) * plot.getHeight();
}

} // namespace quillon::ui_pro::controls
