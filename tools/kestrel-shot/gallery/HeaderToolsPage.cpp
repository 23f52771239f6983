#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/chrome/ResizeHandleLookAndFeel.h"
#include "ui_pro/controls/header/ABControl.h"
#include "ui_pro/controls/header/CopyPasteControl.h"
#include "ui_pro/controls/header/MenuControl.h"
#include "ui_pro/controls/header/UndoRedoControl.h"
#include "ui_pro/style/Theme.h"

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;
using controls::ABControl;
using controls::ABSlot;
using controls::CopyPasteControl;
using controls::MenuControl;
using controls::MenuItem;
using controls::UndoRedoControl;

std::unique_ptr<UndoRedoControl> undoRedo (bool canUndo, bool canRedo)
{
    auto control = std::make_unique<UndoRedoControl>();
    controls::UndoActions actions;
    actions.canUndo = [canUndo] { return canUndo; };
    actions.canRedo = [canRedo] { return canRedo; };
    actions.undo = [] {};
    actions.redo = [] {};
    control->setActions (std::move (actions));
    return control;
}

std::unique_ptr<CopyPasteControl> copyPaste (bool canPaste)
{
    auto control = std::make_unique<CopyPasteControl>();
    controls::CopyActions actions;
    actions.canCopy = [] { return true; };
    actions.canPaste = [canPaste] { return canPaste; };
    actions.copy = [] {};
    actions.paste = [] {};
    control->setActions (std::move (actions));
    return control;
}

std::unique_ptr<ABControl> abCompare (ABSlot slot, bool enabled)
{
    auto control = std::make_unique<ABControl>();
    control->setCallbacks ({ [slot] { return slot; }, {}, [enabled] { return enabled; } });
    return control;
}

std::vector<MenuItem> exampleItems()
{
    using Kind = MenuItem::Kind;
    return { { "reset", Kind::action, "Reset to Init", {}, {}, {} }, { "sep", Kind::separator, {}, {}, {}, {} },
        { "manual", Kind::link, "User Manual", {}, "manual", {} },
        { "quickstart", Kind::link, "Quick Start", {}, {}, {} }, { "support", Kind::panel, "Support...", {}, {}, {} },
        { "website", Kind::link, "Quillon Website", {}, "website", "Help" },
        { "about", Kind::information, "About Kestrel EQ", {}, {}, {} } };
}

std::unique_ptr<MenuControl> menu()
{
    auto control = std::make_unique<MenuControl>();
    control->setItems (exampleItems());
    control->setItemHandler ([] (const MenuItem&) { return false; });
    return control;
}

/** A window with its content at a scale and the list of the menu open in it. */
class MenuWindow final : public juce::Component
{
public:
    MenuWindow (int width, int height, float scale)
        : button (menu())
    {
        setSize (width, height);
        addAndMakeVisible (content);
        content.setSize (juce::roundToInt (static_cast<float> (width) / scale),
            juce::roundToInt (static_cast<float> (height) / scale));
        content.setTransform (juce::AffineTransform::scale (scale));
        content.addAndMakeVisible (*button);
        button->setTopLeftPosition (content.getWidth() - 52, 18);

        button->openPopup();
        button->getPopup()->moveHighlight (1);
        button->getPopup()->moveHighlight (1);
    }

    void paint (juce::Graphics& g) override { g.fillAll (style::Theme::palette().backgroundMid); }

private:
    juce::Component content;
    std::unique_ptr<MenuControl> button;
};

class ResizeHandle final : public juce::Component
{
public:
    ResizeHandle (bool isOver, bool isDragged)
        : over (isOver),
          dragged (isDragged)
    {
        const auto size = style::Theme::get().resizeHandle.size;
        setSize (size, size);
    }

    void paint (juce::Graphics& g) override
    {
        chrome::ResizeHandleLookAndFeel().drawCornerResizer (g, getWidth(), getHeight(), over, dragged);
    }

private:
    const bool over;
    const bool dragged;
};

} // namespace

void addHeaderTools (GallerySheet& sheet)
{
    sheet.addSection ("Header tools");
    sheet.add ("Undo and redo", undoRedo (true, true));
    sheet.add ("Undo only", undoRedo (true, false));
    sheet.add ("Neither", undoRedo (false, false));
    using Part = controls::ToolPair::Part;
    using juce::Button;
    sheet.add ("Mouse over redo", undoRedo (true, true)).getButton (Part::second).setState (Button::buttonOver);
    sheet.add ("Pressed", undoRedo (true, true)).getButton (Part::first).setState (Button::buttonDown);

    sheet.add ("Copy and paste", copyPaste (true));
    sheet.add ("Mouse over paste", copyPaste (true)).getButton (Part::second).setState (Button::buttonOver);
    sheet.add ("Clipboard empty", copyPaste (false));

    sheet.add ("A in use", abCompare (ABSlot::A, true));
    sheet.add ("B in use", abCompare (ABSlot::B, true));
    sheet.add ("Mouse over B", abCompare (ABSlot::A, true)).getButton (Part::second).setState (Button::buttonOver);
    sheet.add ("Disabled", abCompare (ABSlot::A, false));

    sheet.add ("Menu", menu());
    sheet.add ("Mouse over", menu()).setState (Button::buttonOver);
    sheet.add ("No items", std::make_unique<MenuControl>());

    sheet.add ("Resize grip", std::make_unique<ResizeHandle> (false, false));
    sheet.add ("Mouse over", std::make_unique<ResizeHandle> (true, false));
    sheet.add ("Dragging", std::make_unique<ResizeHandle> (false, true));

    sheet.addSection ("Open menu");
    sheet.add ("At scale 0.5", std::make_unique<MenuWindow> (360, 330, 0.5f));
    sheet.add ("At scale 1", std::make_unique<MenuWindow> (360, 330, 1.0f));
    sheet.add ("At scale 1.4", std::make_unique<MenuWindow> (420, 430, 1.4f));
}

} // namespace kestreleq::shot
