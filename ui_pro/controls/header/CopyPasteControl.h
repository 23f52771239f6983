#pragma once

#include "ui_pro/controls/buttons/ToolPair.h"
#include "ui_pro/controls/header/EditorActions.h"

namespace quillon::ui_pro::controls
{

/** The copy and the paste button. A button whose action or predicate is unset is disabled. Message thread. */
class CopyPasteControl final : public ToolPair
{
public:
    CopyPasteControl();

    /** Replaces all actions and refreshes. */
    void setActions (CopyActions newActions);

    /** Asks the predicates again. */
    void refresh();

    void copy();
    void paste();

    bool isCopyEnabled() const { return getButton (Part::first).isEnabled(); }

    bool isPasteEnabled() const { return getButton (Part::second).isEnabled(); }

protected:
    void paintPart (
        juce::Graphics& g, juce::Rectangle<int> area, Part part, const primitives::ButtonLook& look) const override;
    void act (Part part) override;
    juce::String tooltipOf (Part part) const override;

private:
    CopyActions actions;
};

} // namespace quillon::ui_pro::controls
