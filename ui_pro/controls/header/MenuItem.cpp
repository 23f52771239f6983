#include "ui_pro/controls/header/MenuItem.h"

namespace quillon::ui_pro::controls
{
namespace
{

bool needsText (MenuItem::Kind kind)
{
    using Kind = MenuItem::Kind;
    return kind == Kind::action || kind == Kind::link || kind == Kind::panel || kind == Kind::information;
}

} // namespace

bool MenuItem::isChoosable() const
{
    return kind != Kind::separator && kind != Kind::heading && (kind != Kind::link || target.isNotEmpty());
}

std::vector<MenuItem> cleanedMenuItems (std::vector<MenuItem> items)
{
    for (auto& item : items)
    {
        item.text = item.text.trim();

        if (item.text.isEmpty() && needsText (item.kind))
            item.text = "Untitled";
    }

    return items;
}

} // namespace quillon::ui_pro::controls
