#include "ui_pro/controls/header/MenuControl.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{

MenuControl::MenuControl()
    : FaceButton ("Menu", style::Theme::palette().accent),
      list (*this, style::Theme::get().menu)
{
    setTitle ("Menu");
    setTooltip ("Menu");
    setOpen (false);
    setOnlyLeftButton (true);
    setTriggeredOnMouseDown (true);
    setBounds (style::Theme::get().headerTools.menu);
    list.onOpenChanged = [this] { setOpen (list.isOpen()); };
    refreshEnablement();
}

void MenuControl::setItems (std::vector<MenuItem> newItems)
{
    items = cleanedMenuItems (std::move (newItems));
    refreshEnablement();
    list.setItems (makeRows());
}

void MenuControl::setItemHandler (ItemHandler newHandler)
{
    handler = std::move (newHandler);
    refreshEnablement();
}

void MenuControl::refreshEnablement()
{
    setEnabled (! items.empty() && handler != nullptr);
}

std::vector<primitives::ListItem> MenuControl::makeRows()
{
    using RowKind = primitives::ListItem::Kind;
    std::vector<primitives::ListItem> rows;
    juce::String section;

    for (const auto& item : items)
    {
        const auto isSeparator = item.kind == MenuItem::Kind::separator;

        if (item.section != section)
        {
            section = item.section;

            if (section.isNotEmpty())
                rows.push_back (primitives::ListItem::headed (section));
            else if (! isSeparator)
                rows.push_back (primitives::ListItem::separating());
        }

        auto& row = rows.emplace_back();
        row.text = item.text;
        row.choose = [this, item] { choose (item); };
        row.kind = isSeparator                     ? RowKind::separator
            : item.kind == MenuItem::Kind::heading ? RowKind::heading
                                                   : RowKind::choice;
        row.isEnabled = row.kind != RowKind::choice || item.isChoosable();
        row.help = item.tooltip;

        if (item.kind == MenuItem::Kind::link)
            row.sign = toolIconShape (ToolIcon::externalLink);
    }

    return rows;
}

void MenuControl::openPopup()
{
    if (isEnabled())
        list.open (makeRows());
}

void MenuControl::choose (const MenuItem& item)
{
    // A copy: the handler may replace itself, or delete this control.
    if (const auto chosen = handler; chosen != nullptr)
        chosen (item);
}

void MenuControl::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    auto plate = look;
    plate.on = isOpen();
    paintToolPlate (g, getLocalBounds(), plate);
    drawToolIcon (g, ToolIcon::menu, getLocalBounds().withSizeKeepingCentre (20, 20).toFloat());
}

} // namespace quillon::ui_pro::controls
