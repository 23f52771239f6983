#pragma once

#include "tests/support/EditorRig.h"

#include "ui_pro/controls/presets/PresetBrowserPopup.h"
#include "ui_pro/primitives/DropDownList.h"

namespace kestreleq::test
{

// Every control of the editor, for the tests that work each by mouse, by keys and by voice.

using Prepare = void (*) (EditedRig&);
using State = juce::String (*) (EditedRig&);

inline juce::String program (EditedRig& rig)
{
    return juce::String (rig.processor.getCurrentProgram());
}

inline juce::String openList (EditedRig& rig)
{
    return quillon::ui_pro::primitives::DropDownList::findOpenIn (*rig.editor) != nullptr ? "open" : "closed";
}

inline juce::String slot (EditedRig& rig)
{
    return juce::String (static_cast<int> (rig.editor->getHeader().getAbControl().getSlot()));
}

/** A button of the window, what makes it worth pressing, and what a press changes. */
struct ButtonRow
{
    const char* title;
    Prepare prepare;
    State state;
};

inline void nothing (EditedRig&) {}

inline void load (EditedRig& rig)
{
    rig.editor->getHeader().selectProgram (3);
}

inline void loadAndUndo (EditedRig& rig)
{
    load (rig);
    rig.editor->getHeader().selectProgram (4);
    rig.processor.getCore().getHistory().undo();
}

template <Parameter parameter>
juce::String valueOf (EditedRig& rig)
{
    return juce::String (rig.get (infoOf (parameter).id));
}

/** Every button of the window that both lanes are shown in, as the eye goes: from left to right and downwards. */
inline const ButtonRow buttonRows[] {
    { "Initial preset", load, program },
    { "Previous preset", nothing, program },
    { "Preset", nothing,
        [] (EditedRig& rig)
        { return juce::String (rig.editor->getHeader().getPresetSelector().getBrowser() != nullptr ? "open" : ""); } },
    { "Next preset", nothing, program },
    { "Undo", load, valueOf<Parameter::airGain> },
    { "Redo", loadAndUndo, valueOf<Parameter::airGain> },
    { "Settings A",
        [] (EditedRig& rig) { rig.editor->getHeader().getAbControl().select (quillon::ui_pro::controls::ABSlot::B); },
        slot },
    { "Settings B", nothing, slot },
    { "Copy", nothing, [] (EditedRig& rig) { return rig.clipboardText; } },
    { "Paste",
        [] (EditedRig& rig)
        {
            rig.clipboard().copy();
            rig.set ("sub", 0.9f);
        },
        valueOf<Parameter::sub> },
    { "Menu", nothing, openList },
    { "Enabled, lane A", nothing, valueOf<Parameter::laneABypass> },
    { "Enabled, lane B", nothing, valueOf<Parameter::laneBBypass> },
    { "MASTER BYPASS", nothing, valueOf<Parameter::bypass> },
    { "LINK L/R", nothing, valueOf<Parameter::link> },
    { "M/S MODE", nothing, valueOf<Parameter::msMode> },
    { "BREAK", nothing, valueOf<Parameter::breakMode> },
    { "INPUT LINK", nothing, valueOf<Parameter::inGainLink> },
    { "INPUT AUTO GAIN", nothing, valueOf<Parameter::inAutoGain> },
    { "OUTPUT LINK", nothing, valueOf<Parameter::outGainLink> },
    { "OUTPUT AUTO GAIN", nothing, valueOf<Parameter::outAutoGain> },
    { "Oversampling", nothing, openList },
};

/** The titles of all that the Tab key goes to, in its order. */
inline juce::StringArray tabStops()
{
    juce::StringArray titles;

    for (const auto& row : buttonRows)
    {
        titles.add (row.title);

        if (titles[titles.size() - 1].startsWith ("Enabled, "))
            titles.add (titles[titles.size() - 1].replace ("Enabled", "Chart"));
    }

    return titles;
}

/** Every knob by its title. It takes the mouse and voice, but no keys. */
inline std::vector<std::pair<juce::String, Parameter>> knobRows()
{
    std::vector<std::pair<juce::String, Parameter>> rows { { "TRIM", Parameter::trim },
        { "INPUT GAIN 1", Parameter::inGain1 }, { "INPUT GAIN 2", Parameter::inGain2 },
        { "OUTPUT GAIN 1", Parameter::outGain1 }, { "OUTPUT GAIN 2", Parameter::outGain2 } };

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        for (const auto& knob : laneKnobs)
            rows.emplace_back (
                juce::String (knob.caption) + ", lane " + (lane == 0 ? "A" : "B"), onLane (knob.parameter, lane));

    return rows;
}

/** Every node of the charts. The Tab key goes to its chart, Right to it, and voice tells its value. */
inline std::vector<std::tuple<std::size_t, std::size_t, Parameter>> nodeRows()
{
    std::vector<std::tuple<std::size_t, std::size_t, Parameter>> rows;

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        for (std::size_t node = 0; node < ChartNodes::count; ++node)
            rows.emplace_back (lane, node, onLane (laneKnobs[node].parameter, lane));

    return rows;
}

} // namespace kestreleq::test
