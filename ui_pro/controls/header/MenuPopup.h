#pragma once

#include "ui_pro/controls/header/MenuItem.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

/** The place of a list that opens from a button, so that it lies within the window: below the button with its right
    edge at the button's, or above it where there is more room. All in window coordinates but for the list's own size. A
    list that is too large for the window at this scale (window pixels per design pixel) is shrunk. */
juce::AffineTransform placeMenuList (
    juce::Rectangle<float> button, juce::Rectangle<float> window, juce::Rectangle<float> list, float scale);

/** The open list of a menu. The popup itself is invisible and covers its parent, so that a press beside the list
    dismisses it; the list is its child. Message thread. */
class MenuPopup final : public juce::Component
{
public:
    MenuPopup();
    ~MenuPopup() override;

    /** Replaces the rows; expects cleaned items. */
    void setItems (const std::vector<MenuItem>& items);

    /** Puts the list beside a button, given in the popup's coordinates. */
    void placeBeside (juce::Rectangle<float> button, float scale);

    /** Where the list is, in the popup's coordinates. */
    juce::Rectangle<int> getListBounds() const;

    /** Moves the highlight to the next row that can be chosen in this direction (1 or -1), from the end to the start.
     */
    void moveHighlight (int direction);

    /** The index of the highlighted item, -1 for none. */
    int getHighlightedItem() const;

    /** Runs with the index of a chosen item, and when the user wants none. Either may delete the popup. */
    std::function<void (int)> onChosen;
    std::function<void()> onDismissed;

    /** Runs when the parent's size has changed, for the owner to place the list again. */
    std::function<void()> onParentResized;

    void paint (juce::Graphics& g) override;
    void mouseDown (const juce::MouseEvent& event) override;
    bool keyPressed (const juce::KeyPress& key) override;
    void parentSizeChanged() override;

private:
    class List;
    class Row;

    void highlight (Row* row);
    void choose (int itemIndex);
    void dismiss();

    std::unique_ptr<List> list;
    std::vector<std::unique_ptr<Row>> rows;
    Row* highlighted = nullptr;
};

} // namespace quillon::ui_pro::controls
