#include "ui_pro/controls/meters/MeterStrip.h"

#include "ui_pro/controls/meters/MeterScale.h"
#include "ui_pro/primitives/TextValueHandler.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int stripSegments = 32;
constexpr float stripGapFromPitch = 4.0f;
constexpr float largestReductionDb = 36.0f;
constexpr float narrowestTitle = 0.75f; // of its natural width, before it becomes smaller
constexpr int markGap = 1;              // between the bars and the widest mark
constexpr int marks[] = { 12, 0, -12, -24, -36, -48 };

SegmentedBar makeBar (SegmentedBar::Growth growth)
{
    return { stripSegments, stripGapFromPitch, growth };
}

juce::String markText (int db)
{
    return (db > 0 ? "+" : "") + juce::String (db);
}

} // namespace

MeterStrip::MeterStrip()
    : bars { makeBar (SegmentedBar::Growth::up), makeBar (SegmentedBar::Growth::up),
          makeBar (SegmentedBar::Growth::down) }
{
    setInterceptsMouseClicks (true, false); // for the tooltip
    setTitle ("Level");
}

void MeterStrip::setLevels (float linearL, float linearR)
{
    const auto now = clock();
    const auto seconds = secondsBetween (lastUpdateMs, now);
    lastUpdateMs = now;
    levelDbL = nextMeterLevel (levelDbL, toDb (linearL), seconds);
    levelDbR = nextMeterLevel (levelDbR, toDb (linearR), seconds);
    repaintChangedSegments();
}

void MeterStrip::clear()
{
    levelDbL = levelDbR = toDb (0.0f);
    repaintChangedSegments();
}

void MeterStrip::setGainReduction (float db)
{
    const auto magnitude = std::isfinite (db) ? std::min (std::abs (db), largestReductionDb) : 0.0f;

    gainReductionDb = magnitude;

    if (showGainReduction)
    {
        repaintChangedSegments();
        return;
    }

    showGainReduction = true;
    resized();
    repaint();
}

void MeterStrip::setBarColours (juce::Colour left, juce::Colour right)
{
    if (barColourL == left && barColourR == right)
        return;

    barColourL = left;
    barColourR = right;
    repaint (layout.group);
}

void MeterStrip::setGainReductionColour (juce::Colour colour)
{
    if (gainReductionColour == colour)
        return;

    gainReductionColour = colour;
    repaint (layout.bars[2]);
}

void MeterStrip::setLabels (const juce::String& left, const juce::String& right)
{
    if (labelL == left && labelR == right)
        return;

    labelL = left;
    labelR = right;
    staticLayer.invalidate();
    repaint (layout.titleBand);
}

void MeterStrip::resized()
{
    layout = MeterStripLayout::of (getLocalBounds(), showGainReduction);

    for (std::size_t i = 0; i < bars.size(); ++i)
        bars[i].setBounds (layout.bars[i].toFloat());

    lit = countLit();
    staticLayer.invalidate();
}

MeterStrip::LitCounts MeterStrip::countLit() const
{
    return { litSegments (meterFraction (levelDbL), stripSegments),
        litSegments (meterFraction (levelDbR), stripSegments),
        litSegments (gainReductionDb / largestReductionDb, stripSegments) };
}

void MeterStrip::repaintChangedSegments()
{
    const auto before = std::exchange (lit, countLit());

    for (std::size_t i = 0; i < bars.size(); ++i)
        if (before[i] != lit[i])
            repaint (bars[i].getChangedArea (before[i], lit[i]));
}

void MeterStrip::paint (juce::Graphics& g)
{
    staticLayer.draw (g, *this, [this] (juce::Graphics& layer) { paintStaticLayer (layer); });

    const auto pixels = primitives::PixelGrid::of (g, *this);
    bars[0].paintLevel (g, lit[0], barColourL, pixels);
    bars[1].paintLevel (g, lit[1], barColourR, pixels);

    if (showGainReduction)
        bars[2].paintLit (g, lit[2], gainReductionColour, pixels);
}

void MeterStrip::paintStaticLayer (juce::Graphics& g) const
{
    const auto& tokens = style::Theme::get().meter;

    if (layout.group.isEmpty())
        return;

    g.setColour (tokens.trough);
    g.fillRoundedRectangle (layout.group.toFloat().expanded (tokens.stripTroughMargin), tokens.troughRadius);

    const auto pixels = primitives::PixelGrid::of (g, *this);
    const std::array<juce::String, 3> titles { labelL, labelR, "GR" };
    g.setFont (makeTitleFont (titles, pixels.legible (tokens.titleSize)));

    for (int i = 0; i < layout.numBars; ++i)
    {
        bars[static_cast<std::size_t> (i)].paintUnlit (g, pixels);
        g.setColour (style::Theme::palette().textPrimary);
        g.drawText (titles[static_cast<std::size_t> (i)], layout.getTitle (i), juce::Justification::centred, true);
    }

    g.setFont (style::regularFont (pixels.legible (tokens.scaleSize)));

    for (const auto db : marks)
        g.drawFittedText (markText (db),
            layout.getMark (static_cast<float> (db)).toNearestInt().withTrimmedLeft (markGap),
            juce::Justification::centredRight, 1, 0.8f);
}

juce::Font MeterStrip::makeTitleFont (const std::array<juce::String, 3>& titles, float wanted) const
{
    auto share = 1.0f; // of its width that the widest title has room for

    for (int i = 0; i < layout.numBars; ++i)
    {
        const auto width =
            juce::GlyphArrangement::getStringWidth (style::boldFont (wanted), titles[static_cast<std::size_t> (i)]);
        share = std::min (share, static_cast<float> (layout.getTitle (i).getWidth()) / std::ceil (width + 0.5f));
    }

    // First all titles become narrower alike, then smaller.
    const auto smallest = std::min (wanted, style::Theme::get().meter.titleSize);
    const auto size = std::max (std::min (wanted, wanted * share / narrowestTitle), smallest);
    return style::boldFont (size).withHorizontalScale (std::clamp (share * wanted / size, 0.5f, 1.0f));
}

juce::String MeterStrip::spokenValue() const
{
    auto text = labelL + " " + spokenLevel (levelDbL) + ", " + labelR + " " + spokenLevel (levelDbR);

    if (showGainReduction)
        text << ", gain reduction " << juce::String (gainReductionDb, 1) << " dB";

    return text;
}

std::unique_ptr<juce::AccessibilityHandler> MeterStrip::createAccessibilityHandler()
{
    return primitives::makeTextValueHandler (
        *this, juce::AccessibilityRole::progressBar, [this] { return spokenValue(); });
}

} // namespace quillon::ui_pro::controls
