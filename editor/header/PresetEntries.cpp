#include "editor/header/PresetEntries.h"

#include "editor/lane/LaneKnobs.h"
#include "engine/dsp/LaneResponse.h"
#include "engine/parameters/FactoryPrograms.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr double previewRate = 96000.0; // Hz
constexpr double previewSpan = 18.0;    // dB, up and down

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

    std::vector<double> frequencies (static_cast<std::size_t> (area.getWidth()));
    for (std::size_t i = 0; i < frequencies.size(); ++i)
        frequencies[i] =
            20.0 * std::pow (1000.0, static_cast<double> (i) / static_cast<double> (frequencies.size() - 1));

    dsp::LaneResponse response;
    response.prepare (previewRate, std::move (frequencies));
    response.setParameters (laneOf (static_cast<std::size_t> (id)));

    const auto box = area.toFloat();
    const auto yFor = [&] (double level)
    {
        return box.getCentreY() -
            static_cast<float> (std::clamp (level, -previewSpan, previewSpan) / previewSpan) * box.getHeight() * 0.5f;
    };

    juce::Path line;
    for (std::size_t i = 0; i < response.getCurve().size(); ++i)
    {
        const juce::Point<float> point (box.getX() + static_cast<float> (i), yFor (response.getCurve()[i]));
        i == 0 ? line.startNewSubPath (point) : line.lineTo (point);
    }

    const auto& palette = style::Theme::palette();
    g.setColour (palette.outlineStrong);
    g.fillRect (box.withY (std::round (box.getCentreY())).withHeight (1.0f));

    auto fill = line;
    fill.lineTo (box.getRight(), box.getCentreY());
    fill.lineTo (box.getX(), box.getCentreY());
    fill.closeSubPath();
    g.setColour (palette.accentWash);
    g.fillPath (fill);
    g.setColour (palette.accent);
    g.strokePath (line, juce::PathStrokeType (2.0f, juce::PathStrokeType::curved));
}

} // namespace kestreleq
