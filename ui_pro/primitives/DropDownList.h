#pragma once

#include "ui_pro/primitives/KeyboardLoan.h"
#include "ui_pro/primitives/ListItem.h"
#include "ui_pro/style/ListTokens.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <vector>

namespace quillon::ui_pro::primitives
{

/** A list that opens beside its anchor and lends itself the keyboard. It lies over the whole editor, so that a press
    beside the list closes it and does nothing else; Escape, Tab, a choice and the anchor's disappearance close it, too.
    The arrows go round, Home and End jump, Return and Space choose, a letter goes to the next row that begins with it;
    every other key is left to the host. Rows that do not fit scroll. Message thread. */
class DropDownList final : public juce::Component, private juce::ComponentMovementWatcher
{
public:
    /** Both must outlive the list. */
    DropDownList (juce::Component& anchor, const style::ListTokens& tokens);
    ~DropDownList() override;

    /** Does nothing without items or without a component to lie over; highlights the first ticked item. */
    void open (std::vector<ListItem> items);
    void close();

    bool isOpen() const { return getParentComponent() != nullptr; }

    /** Replaces the items of an open list; none closes it. */
    void setItems (std::vector<ListItem> items);

    /** Enlarges the list relative to its anchor; 1 by default. */
    void setScale (float newScale);

    /** Runs when the list has opened or closed. */
    std::function<void()> onOpenChanged;

    /** Moves the highlight to the next row that can be chosen in this direction (1 or -1), from the end to the start.
     */
    void moveHighlight (int direction);

    /** The highlighted item, or null. */
    const ListItem* getHighlighted() const;

    /** Where the list is, in its own coordinates, which are those of what it lies over. */
    juce::Rectangle<int> getListBounds() const;

    /** The list that lies over a component, or null. */
    static DropDownList* findOpenIn (const juce::Component& parent);

    void paint (juce::Graphics& g) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;
    bool keyPressed (const juce::KeyPress& key) override;
    void parentSizeChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    class Row;
    class Surface;

    void componentMovedOrResized (juce::Component& moved, bool wasMoved, bool wasResized) override;
    void componentMovedOrResized (bool wasMoved, bool wasResized) override;
    void componentPeerChanged() override;
    void componentVisibilityChanged() override;
    using juce::ComponentMovementWatcher::componentVisibilityChanged;

    void fill (std::vector<ListItem> items);
    void place();
    void scrollBy (int distance);
    void scrollToHighlighted();
    void highlight (Row* row);
    void step (int from, int direction, const std::function<bool (const Row&)>& isWanted);
    int highlightedPlace() const;
    void choose (const Row& row);

    juce::Component& anchor;
    const style::ListTokens& tokens;
    float scale = 1.0f;
    std::unique_ptr<Surface> surface;
    std::vector<std::unique_ptr<Row>> rows;
    Row* highlighted = nullptr;
    KeyboardLoan keyboard;
};

} // namespace quillon::ui_pro::primitives
