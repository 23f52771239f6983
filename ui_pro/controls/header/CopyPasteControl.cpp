#include "ui_pro/controls/header/CopyPasteControl.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{

CopyPasteControl::CopyPasteControl()
    : ToolPair ("Copy and paste", style::Theme::get().headerTools.copyPaste, "Copy", "Paste")
{
    refresh();
}

void CopyPasteControl::setActions (CopyActions newActions)
{
    actions = std::move (newActions);
    refresh();
}

void CopyPasteControl::refresh()
{
    getButton (Part::first).setEnabled (isAvailable (actions.copy, actions.canCopy));
    getButton (Part::second).setEnabled (isAvailable (actions.paste, actions.canPaste));
}

void CopyPasteControl::copy()
{
    act (Part::first);
}

void CopyPasteControl::paste()
{
    act (Part::second);
}

void CopyPasteControl::act (Part part)
{
    refresh();

    if (! getButton (part).isEnabled())
        return;

    if (part == Part::first)
        actions.copy();
    else
        actions.paste();

    refresh();
}

juce::String CopyPasteControl::tooltipOf (Part part) const
{
    const auto& caption = part == Part::first ? actions.copyCaption : actions.pasteCaption;
    return caption != nullptr ? caption() : juce::String (part == Part::first ? "Copy" : "Paste");
}

void CopyPasteControl::paintPart (
    juce::Graphics& g, juce::Rectangle<int> area, Part part, const primitives::ButtonLook&) const
{
    drawToolIcon (
        g, part == Part::first ? ToolIcon::copy : ToolIcon::paste, area.withSizeKeepingCentre (16, 18).toFloat());
}

} // namespace quillon::ui_pro::controls
