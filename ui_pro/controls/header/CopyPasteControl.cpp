#include "ui_pro/controls/header/CopyPasteControl.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{

CopyPasteControl::CopyPasteControl()
    : ToolPair ("Copy and paste", style::Theme::get().headerTools.copyPaste, ActsOn::click)
{
    describeParts ("Copy", "Paste", false);
    refresh();
}

void CopyPasteControl::setActions (CopyActions newActions)
{
    actions = std::move (newActions);
    refresh();
}

void CopyPasteControl::refresh()
{
    setPartEnabled (Part::first, isAvailable (actions.copy, actions.canCopy));
    setPartEnabled (Part::second, isAvailable (actions.paste, actions.canPaste));
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

    if (! isPartEnabled (part))
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

void CopyPasteControl::paintPart (juce::Graphics& g, juce::Rectangle<int> area, Part part, const ButtonLook&) const
{
    drawToolIcon (
        g, part == Part::first ? ToolIcon::copy : ToolIcon::paste, area.withSizeKeepingCentre (16, 18).toFloat());
}

} // namespace quillon::ui_pro::controls
