#pragma once

#include "ui_pro/controls/presets/PresetEntry.h"

#include <juce_graphics/juce_graphics.h>

#include <vector>

namespace kestreleq
{

/** The factory programs as the preset selector lists them; the ids are the program numbers. */
std::vector<quillon::ui_pro::controls::PresetEntry> makePresetEntries (int currentProgram);

/** Draws a program's response into an area of the browser; nothing for an unknown id. */
void paintPresetPreview (juce::Graphics& g, juce::Rectangle<int> area, int id);

} // namespace kestreleq
