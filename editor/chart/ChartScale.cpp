#include "editor/chart/ChartScale.h"

#include <algorithm>
#include <cmath>

namespace kestreleq
{
namespace
{

constexpr int leftMargin = 27; // level labels
constexpr int topMargin = 4;   // the rest of the height, below, is for frequency labels

const double axisLength = std::log (ChartScale::highestFrequency / ChartScale::lowestFrequency);

} // namespace

ChartScale::ChartScale (int viewWidth, int viewHeight)
    : area (juce::Rectangle<int> (leftMargin, topMargin, std::max (viewWidth - horizontalMargins, 0),
          std::max (viewHeight - verticalMargins, 0))
                .toFloat())
{
}

float ChartScale::xFor (double frequency) const
{
    const auto limited = std::clamp (frequency, lowestFrequency, highestFrequency);
    return area.getX() + static_cast<float> (std::log (limited / lowestFrequency) / axisLength) * area.getWidth();
}

double ChartScale::frequencyAt (float x) const
{
    if (area.isEmpty())
        return lowestFrequency;

    const auto part = static_cast<double> ((x - area.getX()) / area.getWidth());
    return std::clamp (lowestFrequency * std::exp (part * axisLength), lowestFrequency, highestFrequency);
}

float ChartScale::yFor (double level) const
{
    const auto limited = std::clamp (level, -largestLevel, largestLevel);
    return area.getY() + static_cast<float> (1.0 - (limited + largestLevel) / (2.0 * largestLevel)) * area.getHeight();
}

juce::Rectangle<float> ChartScale::spectrumArea() const
{
    return area.withWidth (area.getWidth() * static_cast<float> (std::log (1000.0) / axisLength));
}

} // namespace kestreleq
