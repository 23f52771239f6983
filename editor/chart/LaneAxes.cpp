#include "editor/chart/LaneAxes.h"

#include <algorithm>

namespace kestreleq
{
namespace
{

constexpr int horizontalMargins = 31;
constexpr int verticalMargins = 19;
constexpr int leftMargin = 29; // level labels, up to three letters at half size
constexpr int topMargin = 4;   // the rest of the height, below, is for frequency labels

} // namespace

quillon::ui_pro::controls::ChartAxes makeLaneAxes (int viewWidth, int viewHeight)
{
    const juce::Rectangle<int> plot (
        leftMargin, topMargin, std::max (viewWidth - horizontalMargins, 0), std::max (viewHeight - verticalMargins, 0));
    return { .plot = plot.toFloat(), .lowestHz = 20.0, .highestHz = 40000.0, .lowestDb = -18.0, .highestDb = 18.0 };
}

} // namespace kestreleq
