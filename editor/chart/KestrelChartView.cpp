#include "editor/chart/KestrelChartView.h"

#include "editor/chart/ChartFace.h"
#include "editor/chart/LaneAxes.h"
#include "editor/lane/LaneKnobs.h"
#include "engine/dsp/AirFilter.h"
#include "ui_pro/controls/chart/SpectrumPainter.h"
#include "ui_pro/primitives/ButtonLook.h"
#include "ui_pro/primitives/ParameterTag.h"
#include "ui_pro/primitives/TextValueHandler.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr std::size_t curvePoints = 281;
constexpr float curveWidth = 2.0f;
constexpr double highestSpectrumLevel = 24.0; // dB, at the plot's top
constexpr double lowestDrawingRate = 96000.0; // keeps the axis up to 40 kHz below half of it

double drawingRateFor (double sampleRate)
{
    return std::isfinite (sampleRate) && sampleRate > 0.0 ? std::max (lowestDrawingRate, sampleRate)
                                                          : lowestDrawingRate;
}

} // namespace

std::unique_ptr<KestrelChartView> KestrelChartView::create (KestrelProcessor& processor, std::size_t lane)
{
    return std::unique_ptr<KestrelChartView> (new KestrelChartView (processor, lane));
}

KestrelChartView::KestrelChartView (KestrelProcessor& processorToShow, std::size_t laneToShow)
    : processor (processorToShow),
      lane (laneToShow),
      colour (style::Theme::palette().accent),
      axes (makeLaneAxes (0, 0))
{
    setTitle (lane == 0 ? "Chart, lane A" : "Chart, lane B");
    setWantsKeyboardFocus (true);
    setMouseClickGrabsKeyboardFocus (false);
    addChildComponent (field);
    refreshResponse();
}

float KestrelChartView::readValue (std::size_t index, float defaultValue) const
{
    if (index >= laneKnobs.size())
        return defaultValue;

    return processor.getCore().getValues()[onLane (laneKnobs[index].parameter, lane)];
}

dsp::LaneParameters KestrelChartView::readLane() const
{
    dsp::LaneParameters result;

    for (std::size_t band = 0; band < numBands; ++band)
        result.bands[band] = readValue (band, 0.5f);

    result.airAmount = readValue (airAmountKnob, 0.0f);
    result.airStep = readValue (airStepKnob, 0.0f);
    return result;
}

bool KestrelChartView::refreshResponse()
{
    const auto rate = drawingRateFor (processor.getSampleRate());
    const bool newRate = rate != responseRate;

    if (newRate)
    {
        responseRate = rate;
        response.prepare (rate, spreadFrequencies (axes, curvePoints));
    }

    return response.setParameters (readLane()) || newRate;
}

void KestrelChartView::refresh()
{
    letGoOfKeys();

    const bool curveMoved = refreshResponse();
    const bool spectrumMoved = spectrum.refresh (processor.getCore().getAnalyser (lane));

    if (curveMoved)
        rebuildCurve();

    if (curveMoved || spectrumMoved)
        repaint (axes.plot.getSmallestIntegerContainer());
}

void KestrelChartView::setColour (juce::Colour newColour)
{
    if (colour == newColour)
        return;

    colour = newColour;
    repaint();
}

void KestrelChartView::setSurface (std::function<void (juce::Graphics&)> newSurface)
{
    using primitives::CachedLayer;
    surface = std::move (newSurface);
    background.setPicture (surface != nullptr ? CachedLayer::Picture::covering : CachedLayer::Picture::transparent);
    setOpaque (surface != nullptr);
    repaint();
}

void KestrelChartView::setActive (bool shouldBeActive)
{
    if (std::exchange (active, shouldBeActive) != shouldBeActive)
        repaint();
}

void KestrelChartView::resized()
{
    axes = makeLaneAxes (getWidth(), getHeight());
    rebuildCurve();
}

void KestrelChartView::rebuildCurve()
{
    curve = ResponsePath::of (axes, response.getCurve(), curveWidth);
    ++curvesBuilt;
    nodes.place (axes, response, readValue (airStepKnob, 0.0f));
}

void KestrelChartView::paint (juce::Graphics& g)
{
    const auto pixels = primitives::PixelGrid::of (g, *this);
    background.draw (g, *this,
        [&] (juce::Graphics& picture)
        {
            if (surface != nullptr)
            {
                const juce::Graphics::ScopedSaveState saved (picture);
                surface (picture);
            }

            paintChartBackground (picture, getLocalBounds(), axes, pixels);
        });

    const juce::Graphics::ScopedSaveState saved (g);
    g.reduceClipRegion (axes.plot.getSmallestIntegerContainer());
    {
        // What lies on the floor is silence, and no line.
        const juce::Graphics::ScopedSaveState aboveFloor (g);
        g.reduceClipRegion (axes.plot.withTrimmedBottom (2.0f).getSmallestIntegerContainer());
        paintSpectrum (g);
    }
    paintFace (g);
    paintChosenNode (g);

    grid = pixels;
    pointed = layOutPointed();

    if (const auto readout = makeReadout())
    {
        if (! chosenNode())
            paintChartMark (g, readout->at, shownColour());

        paintChartReadout (g, pointed.box, *readout, pixels);
    }
}

KestrelChartView::Pointed KestrelChartView::layOutPointed() const
{
    const auto around = [] (juce::Point<float> centre, float reach)
    { return juce::Rectangle<float> (2.0f * reach, 2.0f * reach).withCentre (centre); };
    const auto node = chosenNode();
    const auto readout = makeReadout(); // none over an open field
    Pointed result;

    if (readout)
        result.box = layOutReadout (axes, response.getCurve(), *readout, grid);

    if (node)
        result.spot = around (nodes.position (*node), ChartNodes::radius + nodeHalo);
    else if (readout)
        result.spot = around (readout->at, chartMarkRadius);

    return result;
}

void KestrelChartView::repaintPointed()
{
    for (const auto& place : { pointed, layOutPointed() }) // what is painted, and what will be
    {
        repaint (place.box.getSmallestIntegerContainer());
        repaint (place.spot.getSmallestIntegerContainer());
    }
}

juce::Colour KestrelChartView::shownColour() const
{
    return active ? colour : primitives::disabledAccent (colour);
}

void KestrelChartView::paintSpectrum (juce::Graphics& g) const
{
    const auto& palette = style::Theme::palette();
    const std::array colours { palette.textMuted, shownColour() };
    auto levelAxes = axes;
    levelAxes.lowestDb = static_cast<double> (SpectrumDisplay::floorLevel);
    levelAxes.highestDb = highestSpectrumLevel;

    for (std::size_t trace = 0; trace < SpectrumDisplay::numTraces; ++trace)
        if (const auto levels = spectrum.getLevels (trace); ! levels.empty())
            controls::paintSpectrum (
                g, levelAxes, spectrum.getFrequencies(), levels, { .colour = colours[trace], .fill = trace == 1 });
}

/** Grid, curve and nodes. Where an image costs next to nothing they come from one while only the spectrum moves; the
    framework's own renderer draws them in less time than all the pixels of the plot. */
void KestrelChartView::paintFace (juce::Graphics& g)
{
    const auto draw = [this] (juce::Graphics& picture)
    {
        picture.reduceClipRegion (axes.plot.getSmallestIntegerContainer());
        paintChartGrid (picture, axes, primitives::PixelGrid::of (picture, *this));
        paintChartCurve (picture, axes, curve, shownColour());
        paintNodesAtRest (picture);
    };
    const Face face { curvesBuilt, shownColour(), active, isAirOff(), chosenNode() };

    if (std::exchange (paintedFace, face) == face && primitives::drawsWithGraphicsProcessor (g))
        return faceLayer.draw (g, *this, draw);

    const juce::Graphics::ScopedSaveState saved (g);
    faceLayer.invalidate();
    draw (g);
}

void KestrelChartView::paintNodesAtRest (juce::Graphics& g) const
{
    const auto chosen = chosenNode();

    for (std::size_t node = 0; node < ChartNodes::count; ++node)
        if (node != chosen)
            paintChartNode (g, nodes.position (node), ChartNodes::radius, nodeColour (node), NodeState::idle);
}

void KestrelChartView::paintChosenNode (juce::Graphics& g) const
{
    if (const auto chosen = chosenNode())
        paintChartNode (g, nodes.position (*chosen), ChartNodes::radius, nodeColour (*chosen),
            grasped ? NodeState::dragged : NodeState::hovered);

    if (hasKeyboardFocus (true))
        paintNodeRing (g, nodes.position (focused), ChartNodes::radius);
}

std::optional<std::size_t> KestrelChartView::chosenNode() const
{
    if (grasped || hovered)
        return grasped ? grasped : hovered;

    return hasKeyboardFocus (true) ? std::optional (focused) : std::nullopt;
}

juce::Colour KestrelChartView::nodeColour (std::size_t node) const
{
    const auto own = style::Theme::accent (laneKnobs[node].colourId);
    return active && ! (node == ChartNodes::airNode && isAirOff()) ? own : primitives::disabledAccent (own);
}

bool KestrelChartView::isAirOff() const
{
    return dsp::airIndexFor (readValue (airStepKnob, 0.0f)) == 0;
}

juce::String KestrelChartView::textOf (std::size_t knob) const
{
    return parameterOf (knob).getCurrentValueAsText();
}

std::optional<ChartReadout> KestrelChartView::makeReadout() const
{
    if (field.isOpen())
        return {};

    if (const auto node = chosenNode())
        return describeNode (*node);

    if (! pointer || axes.plot.isEmpty())
        return {};

    const auto& palette = style::Theme::palette();
    const auto level = levelAt (axes, response.getCurve(), pointer->x);
    return ChartReadout { { { describeFrequency (axes.frequencyAt (pointer->x)), palette.textPrimary },
                              { describeLevel (level), palette.textSecondary } },
        { pointer->x, axes.yFor (level) } };
}

ChartReadout KestrelChartView::describeNode (std::size_t node) const
{
    const auto& palette = style::Theme::palette();
    const auto at = nodes.position (node);
    ChartReadout readout { { { laneKnobs[node].caption, style::Theme::accent (laneKnobs[node].colourId), true },
                               { textOf (node), palette.textPrimary } },
        at, ChartNodes::radius + 8.0f };

    if (node == ChartNodes::airNode)
        readout.words.push_back ({ textOf (airStepKnob), palette.textPrimary });

    // There the air adds nothing, whatever its amount, and the node does not move.
    readout.words.push_back (node == ChartNodes::airNode && isAirOff()
            ? ChartReadout::Word { "off: drag right", palette.yellow }
            : ChartReadout::Word { describeLevel (levelAt (axes, response.getCurve(), at.x)), palette.textSecondary });
    return readout;
}

juce::String KestrelChartView::getReadoutText() const
{
    const auto readout = makeReadout();
    return readout ? readout->getText() : juce::String();
}

std::unique_ptr<juce::AccessibilityHandler> KestrelChartView::createAccessibilityHandler()
{
    return primitives::makeTextValueHandler (
        *this, juce::AccessibilityRole::image, [this] { return describeNode (focused).getText(); });
}

} // namespace kestreleq
