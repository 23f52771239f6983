#pragma once

#include "engine/parameters/FactoryPrograms.h"
#include "ui_pro/controls/presets/PresetEntry.h"

#include <vector>

namespace kestreleq::test
{

/** The factory programs as the preset library gets them; program 1 is in force. */
inline std::vector<quillon::ui_pro::controls::PresetEntry> factoryEntries()
{
    std::vector<quillon::ui_pro::controls::PresetEntry> entries;

    for (const auto& program : factoryPrograms)
    {
        auto& entry = entries.emplace_back();
        entry.id = static_cast<int> (entries.size()) - 1;
        entry.name = program.name;
        entry.description = program.description;
        entry.category = "Factory";
        entry.author = "Quillon";
        entry.mode = "Kestrel";
        entry.tags = entry.id == 0 ? juce::StringArray { "flat", "init", "factory" }
                                   : juce::StringArray { "factory", "kestrel", "eq" };
        entry.isLoaded = entry.id == 1;
    }

    return entries;
}

} // namespace kestreleq::test
