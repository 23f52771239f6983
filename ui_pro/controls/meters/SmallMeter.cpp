#include "ui_pro/controls/meters/SmallMeter.h"

#include "ui_pro/controls/meters/MeterScale.h"
#include "ui_pro/primitives/TextValueHandler.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int smallSegments = 24;
constexpr float smallGapFromPitch = 3.0f;

} // namespace

SmallMeter::SmallMeter()
    : bar (smallSegments, smallGapFromPitch, SegmentedBar::Growth::right)
{
    setTitle ("Level");
}

void SmallMeter::setLevel (float linear)
{
    const auto now = clock();
    show (nextMeterLevel (levelDb, toDb (linear), secondsBetween (lastUpdateMs, now)));
    lastUpdateMs = now;
}

void SmallMeter::clear()
{
    show (toDb (0.0f));
}

void SmallMeter::show (float db)
{
    levelDb = db;
    const auto before = std::exchange (lit, litSegments (meterFraction (levelDb), smallSegments));

    if (before != lit)
        repaint (bar.getChangedArea (before, lit));
}

void SmallMeter::setColour (juce::Colour colour)
{
    if (barColour == colour)
        return;

    barColour = colour;
    repaint();
}

void SmallMeter::paintTrough (juce::Graphics& g, juce::Rectangle<float> meterBounds)
{
    const auto& tokens = style::Theme::get().meter;
    g.setColour (tokens.trough);
    g.fillRoundedRectangle (meterBounds.expanded (tokens.smallTroughMargin), tokens.troughRadius);
}

void SmallMeter::resized()
{
    bar.setBounds (getLocalBounds().toFloat());
}

void SmallMeter::paint (juce::Graphics& g)
{
    staticLayer.draw (g, *this,
        [this] (juce::Graphics& layer)
        {
            paintTrough (layer, bar.getBounds());
            bar.paintUnlit (layer, primitives::PixelGrid::of (layer, *this));
        });
    bar.paintLevel (g, lit, barColour, primitives::PixelGrid::of (g, *this));
}

std::unique_ptr<juce::AccessibilityHandler> SmallMeter::createAccessibilityHandler()
{
    return primitives::makeTextValueHandler (
        *this, juce::AccessibilityRole::progressBar, [this] { return spokenLevel (levelDb); });
}

} // namespace quillon::ui_pro::controls
