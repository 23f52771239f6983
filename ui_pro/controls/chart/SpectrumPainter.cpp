#include "ui_pro/controls/chart/SpectrumPainter.h"

#include "ui_pro/controls/chart/CurvePainter.h"
#include "ui_pro/controls/chart/SpectrumAxes.h"

#include <algorithm>
#include <vector>

namespace quillon::ui_pro::controls
{

void paintSpectrum (
    juce::Graphics& g, juce::Rectangle<float> area, std::span<const float> levels, const SpectrumLook& look)
{
    if (levels.empty() || area.isEmpty())
        return;

    const auto atEdges = look.placement == BinPlacement::edges;
    const auto offset = atEdges ? 0.0f : 0.5f;
    const auto shares = static_cast<float> (atEdges ? std::max<std::size_t> (levels.size() - 1, 1) : levels.size());
    std::vector<juce::Point<float>> points (levels.size());

    for (std::size_t i = 0; i < levels.size(); ++i)
        points[i] = { area.getX() + (static_cast<float> (i) + offset) / shares * area.getWidth(),
            dbToY (levels[i], area, look.minDb, look.maxDb) };

    if (look.fill)
        fillCurve (g, points, area.getBottom(), area, look.colour);

    if (look.lineWidth > 0.0f)
        strokeCurve (g, points, look.lineWidth, look.colour);
}

} // namespace quillon::ui_pro::controls
