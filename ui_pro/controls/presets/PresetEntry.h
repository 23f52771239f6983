#pragma once

#include <juce_core/juce_core.h>

namespace quillon::ui_pro::controls
{

enum class PresetOrigin : juce::int32
{
    factory = 1,
    user = 2
};

/** What the preset library knows of one preset. An entry with a negative id is never shown. */
struct PresetEntry
{
    juce::int32 id = -1;
    juce::String name;
    PresetOrigin origin = PresetOrigin::factory;
    bool isLoaded = false; // the one in force; the library lets one entry keep it
    bool isFavourite = false;
    bool isRecent = false;
    juce::String category;
    juce::String author;
    juce::String mode; // the effect, or the mode of it, that the preset belongs to
    juce::String description;
    juce::StringArray tags;
    juce::String created; // dates, as shown
    juce::String modified;

    bool operator== (const PresetEntry&) const = default;
};

} // namespace quillon::ui_pro::controls
