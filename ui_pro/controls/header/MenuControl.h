#pragma once

#include "ui_pro/controls/header/MenuItem.h"
#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::controls
{

/** The header's menu button and its list. Disabled without items or handler. Message thread. */
class MenuControl final : public primitives::FaceButton
{
public:
    using Popup = primitives::DropDownList;

    /** Receives the chosen item, after the list has closed. */
    using ItemHandler = std::function<bool (const MenuItem&)>;

    MenuControl();

    /** Replaces the items; an open list shows the new ones, or closes if there is none. */
    void setItems (std::vector<MenuItem> newItems);

    const std::vector<MenuItem>& getItems() const { return items; }

    void setItemHandler (ItemHandler newHandler);

    /** Enlarges the list relative to the button; 1 by default. */
    void setScale (float newScale) { list.setScale (newScale); }

    void openPopup();

    void closePopup() { list.close(); }

    /** The open list, or null. */
    Popup* getPopup() { return list.isOpen() ? &list : nullptr; }

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;

    void clicked() override { openPopup(); }

private:
    std::vector<primitives::ListItem> makeRows();
    void choose (const MenuItem& item);
    void refreshEnablement();

    std::vector<MenuItem> items;
    ItemHandler handler;
    Popup list;
};

} // namespace quillon::ui_pro::controls
