#include "ui_pro/controls/meters/MeterPair.h"

#include "ui_pro/controls/meters/MeterScale.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int captionX = 4;
constexpr int captionWidth = 36;
constexpr int captionGap = 2; // before the meter
constexpr int meterX = 46;
constexpr int besideMeter = 88; // of the width
constexpr int readoutGap = 6;
constexpr int readoutWidth = 40;
constexpr int rowMargin = 4; // above and below a meter

} // namespace

MeterPair::MeterPair (const juce::String& captionA, const juce::String& captionB)
{
    const juce::String captions[] = { captionA, captionB };

    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        auto& row = rows[i];
        row.caption = captions[i];
        row.meter.setTitle (captions[i]);
        row.meter.clock = [this] { return clock(); };
        addAndMakeVisible (row.meter);
    }
}

void MeterPair::setLevels (float linearA, float linearB)
{
    showLevel (0, linearA);
    showLevel (1, linearB);
}

void MeterPair::clear()
{
    for (auto& row : rows)
        row.meter.clear();

    setLevels (0.0f, 0.0f);
}

void MeterPair::showLevel (int index, float linear)
{
    auto& row = rows[static_cast<std::size_t> (index)];
    row.meter.setLevel (linear);
    row.readoutDb = row.meter.getLevelDb();

    const auto text = meterReadout (row.readoutDb);

    if (row.readout == text)
        return;

    row.readout = text;
    repaint (getReadoutBounds (index));
}

void MeterPair::setColours (juce::Colour a, juce::Colour b)
{
    rows[0].meter.setColour (a);
    rows[1].meter.setColour (b);
}

juce::Rectangle<int> MeterPair::getCaptionBounds (int row) const
{
    const auto height = getHeight() / 2;
    return { captionX, row * height, captionWidth, height };
}

juce::Rectangle<int> MeterPair::getReadoutBounds (int row) const
{
    const auto meter = getMeter (row).getBounds();
    const juce::Rectangle<int> box (
        meter.getRight() + readoutGap, meter.getY() - rowMargin, readoutWidth, meter.getHeight() + 2 * rowMargin);
    return box.getIntersection (getLocalBounds());
}

void MeterPair::resized()
{
    const auto height = getHeight() / 2;

    for (int i = 0; i < 2; ++i)
        rows[static_cast<std::size_t> (i)].meter.setBounds (meterX, i * height + rowMargin,
            std::max (getWidth() - besideMeter, 1), std::max (height - 2 * rowMargin, 1));
}

void MeterPair::paint (juce::Graphics& g)
{
    staticLayer.draw (g, *this, [this] (juce::Graphics& layer) { paintStaticLayer (layer); });

    g.setColour (style::Theme::palette().textSecondary);
    g.setFont (style::regularFont (primitives::PixelGrid::of (g).legible (style::Theme::get().meter.readoutSize)));

    for (int i = 0; i < 2; ++i)
        if (const auto box = getReadoutBounds (i); g.clipRegionIntersects (box))
            g.drawFittedText (getReadout (i), box, juce::Justification::centredLeft, 1, 0.8f);
}

void MeterPair::paintStaticLayer (juce::Graphics& g) const
{
    g.setFont (style::boldFont (primitives::PixelGrid::of (g).legible (style::Theme::get().meter.captionSize)));

    for (int i = 0; i < 2; ++i)
    {
        SmallMeter::paintTrough (g, getMeter (i).getBounds().toFloat());
        g.setColour (style::Theme::palette().textPrimary);
        g.drawFittedText (rows[static_cast<std::size_t> (i)].caption,
            getCaptionBounds (i).withTrimmedRight (captionGap), juce::Justification::centredLeft, 1, 0.7f);
    }
}

} // namespace quillon::ui_pro::controls
