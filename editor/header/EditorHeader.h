#pragma once

#include "editor/ResourceManifest.h"
#include "editor/header/AbComparison.h"
#include "editor/header/StateClipboard.h"

#include "engine/KestrelProcessor.h"
#include "ui_pro/controls/header/ABControl.h"
#include "ui_pro/controls/header/CopyPasteControl.h"
#include "ui_pro/controls/header/EditorCommandController.h"
#include "ui_pro/controls/header/MenuControl.h"
#include "ui_pro/controls/header/UndoRedoControl.h"
#include "ui_pro/controls/presets/PresetSelector.h"
#include "ui_pro/layout/HeaderBar.h"

#include <functional>

namespace kestreleq
{

/** The bar at the top with its tools, and what they do: programs, undo, A/B, copy and paste, the menu. Message thread.
 */
class EditorHeader
{
public:
    /** What the rest of the editor does for the header. */
    struct Hooks
    {
        std::function<void()> refreshEditor; // after anything that may have changed everything
        std::function<void()> openSupport;
    };

    EditorHeader (KestrelProcessor& processorToControl, const ResourceManifest& manifestToShow, Hooks hooksToUse);

    void addTo (juce::Component& canvas);
    void place();

    /** Shows which preset is in force, and which steps can be undone. */
    void refresh();

    /** Shows what can be undone and pasted. */
    void refreshCommands() { commands.refresh(); }

    /** Sets the program and shows what it did. */
    void selectProgram (int program);

    juce::KeyListener& getKeyListener() { return commands.getKeyForwarder(); }

    quillon::ui_pro::layout::HeaderBar& getBar() { return bar; }

    quillon::ui_pro::controls::PresetSelector& getPresetSelector() { return presetSelector; }

    quillon::ui_pro::controls::MenuControl& getMenu() { return menu; }

    quillon::ui_pro::controls::ABControl& getAbControl() { return abControl; }

    StateClipboard& getClipboard() { return clipboard; }

    /** Shows a web page. Replaced in tests. */
    std::function<void (const juce::String&)> openAddress = [] (const juce::String& address)
    { juce::URL (address).launchInDefaultBrowser(); };

private:
    void initialiseHeader();
    void initialiseMenu();
    void initialisePresetSelector();
    void initialiseABControl();
    void stepProgram (int distance);
    void showPreset();
    bool chooseMenuItem (const quillon::ui_pro::controls::MenuItem& item);

    KestrelProcessor& processor;
    const ResourceManifest& manifest;
    Hooks hooks;
    AbComparison comparison;
    StateClipboard clipboard;

    quillon::ui_pro::layout::HeaderBar bar;
    quillon::ui_pro::controls::PresetSelector presetSelector;
    quillon::ui_pro::controls::UndoRedoControl undoRedo;
    quillon::ui_pro::controls::ABControl abControl;
    quillon::ui_pro::controls::MenuControl menu;
    quillon::ui_pro::controls::CopyPasteControl copyPaste;
    quillon::ui_pro::controls::EditorCommandController commands;
};

} // namespace kestreleq
