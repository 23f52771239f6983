#include "ui_pro/controls/header/UndoRedoControl.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{

UndoRedoControl::UndoRedoControl()
    : ToolPair ("Undo and redo", style::Theme::get().headerTools.undoRedo, "Undo", "Redo")
{
    refresh();
}

void UndoRedoControl::setActions (UndoActions newActions)
{
    actions = std::move (newActions);
    refresh();
}

void UndoRedoControl::refresh()
{
    getButton (Part::first).setEnabled (isAvailable (actions.undo, actions.canUndo));
    getButton (Part::second).setEnabled (isAvailable (actions.redo, actions.canRedo));
}

void UndoRedoControl::undo()
{
    act (Part::first);
}

void UndoRedoControl::redo()
{
    act (Part::second);
}

void UndoRedoControl::act (Part part)
{
    refresh();

    if (! getButton (part).isEnabled())
        return;

    if (part == Part::first)
        actions.undo();
    else
        actions.redo();

    refresh();
}

juce::String UndoRedoControl::tooltipOf (Part part) const
{
    const auto& name = part == Part::first ? actions.undoName : actions.redoName;
    return name != nullptr ? name() : juce::String();
}

void UndoRedoControl::paintPart (
    juce::Graphics& g, juce::Rectangle<int> area, Part part, const primitives::ButtonLook&) const
{
    drawToolIcon (
        g, part == Part::first ? ToolIcon::undo : ToolIcon::redo, area.withSizeKeepingCentre (20, 20).toFloat());
}

} // namespace quillon::ui_pro::controls
