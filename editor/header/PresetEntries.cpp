#include "editor/header/PresetEntries.h"

#include "editor/chart/ResponsePath.h"
#include "editor/lane/LaneKnobs.h"
#include "engine/dsp/LaneResponse.h"
#include "engine/parameters/FactoryPrograms.h"
#include "ui_pro/controls/chart/ChartGrid.h"
#include "ui_pro/style/Theme.h"

#include <array>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr double previewRate = 96000.0; // Hz
constexpr double previewSpan = 18.0;    // dB, up and down
constexpr float previewWidth = 2.0f;
constexpr std::array zeroLevel { 0 };

dsp::LaneParameters laneOf (std::size_t program)
{
    const auto values = valuesOf (factoryPrograms[program]);
    dsp::LaneParameters lane;

    for (std::size_t band = 0; band < numBands; ++band)
        lane.bands[band] = values[indexOf (laneKnobs[band].parameter)];

    lane.airAmount = values[indexOf (Parameter::airGain)];
    lane.airStep = values[indexOf (Parameter::airBand)];
    return lane;
}

} // namespace

std::vector<controls::PresetEntry> makePresetEntries (int currentProgram)
{
    std::vector<controls::PresetEntry> entries;

    for (std::size_t i = 0; i < factoryPrograms.size(); ++i)
    {
        controls::PresetEntry entry;
        entry.id = static_cast<int> (i);
        entry.name = factoryPrograms[i].name;
        entry.origin = controls::PresetOrigin::factory;
        entry.isLoaded = entry.id == currentProgram;
        entry.category = "Factory";
        entry.author = "Quillon";
        entry.mode = "Kestrel";
        entry.description = factoryPrograms[i].description;
        entry.tags =
            i == 0 ? juce::StringArray { "flat", "init", "factory" } : juce::StringArray { "factory", "kestrel", "eq" };
        entries.push_back (std::move (entry));
    }

    return entries;
}

void paintPresetPreview (juce::Graphics& g, juce::Rectangle<int> area, int id)
{
    if (! juce::isPositiveAndBelow (id, static_cast<int> (factoryPrograms.size())) || area.getWidth() < 2)
        return;

    const controls::ChartAxes axes { .plot = area.toFloat(), .lowestDb = -previewSpan, .highestDb = previewSpan };
    dsp::LaneResponse response;
    response.prepare (previewRate, spreadFrequencies (axes, static_cast<std::size_t> (area.getWidth()) + 1));
    response.setParameters (laneOf (static_cast<std::size_t> (id)));

    const auto& palette = style::Theme::palette();
    controls::paintGridLines (
        g, { .axes = axes, .levels = zeroLevel, .zeroLine = palette.outlineStrong }, primitives::PixelGrid::of (g));
    const auto curve = ResponsePath::of (axes, response.getCurve(), previewWidth);
    g.setColour (palette.accentWash);
    g.fillPath (curve.fill);
    g.setColour (palette.accent);
    g.fillPath (curve.line);
}

} // namespace kestreleq
