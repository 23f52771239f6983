#include "editor/header/EditorHeader.h"

#include "editor/EditorLayout.h"
#include "editor/header/HeaderMenu.h"
#include "editor/header/PresetEntries.h"
#include "engine/parameters/FactoryPrograms.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <utility>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr int numPrograms = static_cast<int> (factoryPrograms.size());

} // namespace

EditorHeader::EditorHeader (
    KestrelProcessor& processorToControl, const ResourceManifest& manifestToShow, Hooks hooksToUse)
    : processor (processorToControl),
      manifest (manifestToShow),
      hooks (std::move (hooksToUse)),
      comparison (processorToControl),
      clipboard (processorToControl),
      commands (undoRedo, copyPaste)
{
    initialiseHeader();
    menu.setScale (1.0f);
    initialiseMenu();
    initialisePresetSelector();
    initialiseABControl();
}

void EditorHeader::initialiseHeader()
{
    bar.setProductName (manifest.name());
    bar.setSubtitle (manifest.tagline());
    bar.setVersionText ("v" + manifest.version());
}

void EditorHeader::initialiseMenu()
{
    menu.setItems (makeMenuItems (manifest));
    menu.setItemHandler ([this] (const controls::MenuItem& item) { return chooseMenuItem (item); });
}

bool EditorHeader::chooseMenuItem (const controls::MenuItem& item)
{
    if (item.id == "reset")
        selectProgram (0);
    else if (item.id == "support")
        hooks.openSupport();
    else if (item.kind == controls::MenuItem::Kind::link && item.target.isNotEmpty())
        openAddress (item.target);

    return false;
}

void EditorHeader::initialisePresetSelector()
{
    controls::PresetSelector::Hooks selectorHooks;
    selectorHooks.initialise = [this] { selectProgram (0); };
    selectorHooks.previous = [this] { stepProgram (-1); };
    selectorHooks.next = [this] { stepProgram (1); };
    selectorHooks.load = [this] (int program) { selectProgram (program); };
    presetSelector.setHooks (std::move (selectorHooks));
    presetSelector.setPreviewPainter (paintPresetPreview);
    showPreset();
}

void EditorHeader::selectProgram (int program)
{
    processor.setCurrentProgram (program);
    hooks.refreshEditor();
}

void EditorHeader::stepProgram (int distance)
{
    selectProgram ((processor.getCurrentProgram() + distance + numPrograms) % numPrograms);
}

void EditorHeader::showPreset()
{
    const auto preset = processor.getPreset();
    const auto name = preset.isCustom ? juce::String ("Custom") : processor.getProgramName (preset.program);
    presetSelector.setEntries (makePresetEntries (preset.isCustom ? -1 : preset.program));
    bar.setPresetName (name);

    if (preset.isCustom) // it comes after the programs and is none of them
        presetSelector.setCurrentPreset (numPrograms, numPrograms + 1, name);
    else
        presetSelector.setCurrentPreset (preset.program, numPrograms, name);
}

void EditorHeader::initialiseABControl()
{
    auto& history = processor.getCore().getHistory();
    auto& manager = processor.getCore().getUndoManager();

    controls::ABControl::Callbacks callbacks;
    callbacks.currentSlot = [this] { return static_cast<controls::ABSlot> (comparison.getSlot()); };
    callbacks.enabled = [] { return true; };
    callbacks.slotSelected = [this] (controls::ABSlot slot)
    {
        if (! comparison.switchTo (static_cast<std::uint32_t> (slot)))
            return;

        abControl.setSlot (slot);
        hooks.refreshEditor();
    };
    abControl.setCallbacks (std::move (callbacks));

    controls::EditorActions actions;
    actions.canUndo = [&history] { return history.canUndo(); };
    actions.canRedo = [&history] { return history.canRedo(); };
    actions.undo = [this]
    {
        if (comparison.undo())
            hooks.refreshEditor();
    };
    actions.redo = [this]
    {
        if (comparison.redo())
            hooks.refreshEditor();
    };
    actions.undoName = [&manager] { return manager.getUndoDescription(); };
    actions.redoName = [&manager] { return manager.getRedoDescription(); };
    actions.canCopy = [] { return true; };
    actions.canPaste = [this] { return clipboard.canPaste(); };
    actions.canPasteNow = [this] { return clipboard.canPasteNow(); };
    actions.copy = [this] { clipboard.copy(); };
    actions.paste = [this]
    {
        if (clipboard.paste())
            hooks.refreshEditor();
    };
    actions.copyCaption = [] { return juce::String ("Copy"); };
    commands.setActions (std::move (actions));
}

void EditorHeader::addTo (juce::Component& canvas)
{
    canvas.addAndMakeVisible (bar);
    presetSelector.setBrowserParent (&canvas);
}

void EditorHeader::place()
{
    const auto& slots = style::Theme::get().header;
    bar.setBounds (0, 0, layout::designWidth, slots.height);
    bar.place (presetSelector, slots.presetSelector);
    bar.place (undoRedo, slots.undoRedo);
    bar.place (abControl, slots.abCompare);
    bar.place (menu, slots.menu);
    bar.place (copyPaste, slots.copyPaste.withWidth (44));
}

void EditorHeader::refresh()
{
    showPreset();
    commands.refresh();
    abControl.refresh();
}

} // namespace kestreleq
