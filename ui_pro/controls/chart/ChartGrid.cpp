#include "ui_pro/controls/chart/ChartGrid.h"

#include "ui_pro/style/Fonts.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float labelGap = 4.0f;      // between a label and its line
constexpr float outsideGap = 3.0f;    // between the plot and the labels at its left
constexpr float outsideWidth = 25.0f; // there; what is wider is squeezed
constexpr float outsideCentre = 7.5f; // of the labels below the plot, from its bottom

juce::String frequencyText (double hz)
{
    const auto thousands = juce::roundToInt (hz / 100.0);
    return hz < 1000.0 ? juce::String (juce::roundToInt (hz))
                       : juce::String (thousands / 10) +
            (thousands % 10 != 0 ? "." + juce::String (thousands % 10) : juce::String()) + "k";
}

juce::String levelText (int db)
{
    return (db > 0 ? "+" : "") + juce::String (db);
}

float labelWidth (const juce::Font& font, const juce::String& text)
{
    return std::ceil (juce::GlyphArrangement::getStringWidth (font, text)) + 1.0f;
}

/** Puts one label after the other where it touches none before it. */
class LabelPlacer
{
public:
    LabelPlacer (const ChartGrid& gridToLabel, const primitives::PixelGrid& pixels)
        : grid (gridToLabel),
          plot (gridToLabel.axes.plot),
          height (pixels.legible (gridToLabel.textSize)),
          font (style::regularFont (height))
    {
    }

    void addLevel (int db)
    {
        const auto y = grid.axes.yFor (db);
        const auto text = levelText (db);
        const auto width = widthOf (text);

        if (grid.labels == ChartGrid::Labels::outside)
        {
            const auto room = std::min (width, outsideWidth);
            return add (text, { plot.getX() - outsideGap - room, y - 0.5f * height, room, height });
        }

        // Above its line, 0 dB beneath it where there is no room; the lowest row belongs to the frequencies.
        const auto top = db == 0 && y - height < plot.getY() ? y : y - height;
        const juce::Rectangle<float> box (plot.getX() + labelGap, top, width, height);

        if (box.getY() >= plot.getY() && box.getBottom() <= getRow().getY())
            add (text, box);
    }

    void addFrequency (double hz)
    {
        const auto x = grid.axes.xFor (hz);
        const auto text = frequencyText (hz);
        const auto width = widthOf (text);

        if (grid.labels == ChartGrid::Labels::outside)
        {
            const auto left = std::clamp (x - 0.5f * width, plot.getX() - outsideGap,
                std::max (plot.getRight() - width, plot.getX() - outsideGap));
            return add (text, getRow().withX (left).withWidth (width));
        }

        // Beside its line, on the side that lies within the chart.
        const auto right = x + labelGap + width;
        add (text, getRow().withWidth (width).withX (right < plot.getRight() ? x + labelGap : x - labelGap - width));
    }

    std::vector<GridLabel> labels;

private:
    float widthOf (const juce::String& text) const { return labelWidth (font, text); }

    juce::Rectangle<float> getRow() const
    {
        return grid.labels == ChartGrid::Labels::outside
            ? plot.withY (plot.getBottom() + outsideCentre - 0.5f * height).withHeight (height)
            : plot.withY (plot.getBottom() - height - 2.0f).withHeight (height);
    }

    void add (const juce::String& text, juce::Rectangle<float> box)
    {
        const auto own = box.expanded (0.25f * height, 0.0f);
        const auto touches = [&own] (const GridLabel& other) { return other.box.intersects (own); };

        if (std::none_of (labels.begin(), labels.end(), touches))
            labels.push_back ({ text, box });
    }

    const ChartGrid& grid;
    const juce::Rectangle<float> plot;
    const float height;
    const juce::Font font;
};

} // namespace

std::vector<GridLabel> placeGridLabels (const ChartGrid& grid, const primitives::PixelGrid& pixels)
{
    LabelPlacer placer (grid, pixels);

    if (grid.axes.plot.isEmpty())
        return {};

    if (std::find (grid.levels.begin(), grid.levels.end(), 0) != grid.levels.end())
        placer.addLevel (0);

    for (const auto db : grid.levels)
        if (db != 0)
            placer.addLevel (db);

    if (! grid.frequencies.empty())
    {
        placer.addFrequency (grid.frequencies.front());
        placer.addFrequency (grid.frequencies.back());
    }

    for (const auto hz : grid.frequencies)
        if (hz != grid.frequencies.front() && hz != grid.frequencies.back())
            placer.addFrequency (hz);

    return std::move (placer.labels);
}

void paintGridLines (juce::Graphics& g, const ChartGrid& grid, const primitives::PixelGrid& pixels)
{
    const auto plot = pixels.snap (grid.axes.plot);
    const auto width = pixels.wholePixels (1.0f);

    for (const auto db : grid.levels)
    {
        const auto top = pixels.snapY (grid.axes.yFor (db) - 0.5f * width);
        g.setColour (db == 0 ? grid.zeroLine : grid.levelLine);
        g.fillRect (plot.withHeight (width).withY (
            std::clamp (top, plot.getY(), std::max (plot.getBottom() - width, plot.getY()))));
    }

    g.setColour (grid.frequencyLine);

    for (const auto hz : grid.frequencies)
    {
        const auto left = pixels.snapX (grid.axes.xFor (hz) - 0.5f * width);
        g.fillRect (plot.withWidth (width).withX (
            std::clamp (left, plot.getX(), std::max (plot.getRight() - width, plot.getX()))));
    }
}

void paintGridLabels (juce::Graphics& g, const ChartGrid& grid, const primitives::PixelGrid& pixels)
{
    const auto font = style::regularFont (pixels.legible (grid.textSize));
    g.setColour (grid.text);

    for (const auto& label : placeGridLabels (grid, pixels))
    {
        g.setFont (font.withHorizontalScale (std::min (label.box.getWidth() / labelWidth (font, label.text), 1.0f)));
        g.drawText (label.text, label.box, juce::Justification::centred, false);
    }
}

} // namespace quillon::ui_pro::controls
