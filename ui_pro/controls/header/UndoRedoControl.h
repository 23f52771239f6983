#pragma once

#include "ui_pro/controls/buttons/ToolPair.h"
#include "ui_pro/controls/header/EditorActions.h"

namespace quillon::ui_pro::controls
{

/** The undo and the redo button. A button whose action or predicate is unset is disabled. Message thread. */
class UndoRedoControl final : public ToolPair
{
public:
    UndoRedoControl();

    /** Replaces all actions and refreshes. */
    void setActions (UndoActions newActions);

    /** Asks the predicates again. */
    void refresh();

    void undo();
    void redo();

    bool isUndoEnabled() const { return getButton (Part::first).isEnabled(); }

    bool isRedoEnabled() const { return getButton (Part::second).isEnabled(); }

protected:
    void paintPart (
        juce::Graphics& g, juce::Rectangle<int> area, Part part, const primitives::ButtonLook& look) const override;
    void act (Part part) override;
    juce::String tooltipOf (Part part) const override;

private:
    UndoActions actions;
};

} // namespace quillon::ui_pro::controls
