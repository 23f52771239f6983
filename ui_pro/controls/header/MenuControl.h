#pragma once

#include "ui_pro/controls/header/MenuItem.h"
#include "ui_pro/controls/header/MenuPopup.h"
#include "ui_pro/primitives/KeyboardLoan.h"

namespace quillon::ui_pro::controls
{

/** The header's menu button. Its list opens as a child of the window's content, above everything in it, and never
    leaves it, whatever the scale of the content that the button is in. Disabled without items or handler. Message
    thread. */
class MenuControl final : public juce::Component, public juce::SettableTooltipClient
{
public:
    using Popup = MenuPopup;

    /** Receives the chosen item, after the list has closed. */
    using ItemHandler = std::function<bool (const MenuItem&)>;

    MenuControl();
    ~MenuControl() override;

    /** Replaces the items; an open list shows the new ones, or closes if there is none. */
    void setItems (std::vector<MenuItem> newItems);

    const std::vector<MenuItem>& getItems() const { return items; }

    void setItemHandler (ItemHandler newHandler);

    /** Enlarges the list relative to the button; 1 by default. */
    void setScale (float newScale);

    /** Window pixels per design pixel of the list, for those of the button: in a small window it stays readable. */
    static float listScale (float buttonScale);

    void openPopup();
    void closePopup();

    /** The open list, or null. */
    Popup* getPopup() const { return popup.get(); }

    void paint (juce::Graphics& g) override;
    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void enablementChanged() override;
    void visibilityChanged() override;
    void parentHierarchyChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void placePopup();
    void choose (int index);
    void refreshEnablement();

    std::vector<MenuItem> items;
    ItemHandler handler;
    float scale = 1.0f;
    bool hovered = false;
    std::unique_ptr<Popup> popup;
    primitives::KeyboardLoan keyboard;
};

} // namespace quillon::ui_pro::controls
