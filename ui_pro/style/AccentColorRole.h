#pragma once

namespace quillon::ui_pro::style
{

/** Names a colour of the theme's accent table by its number, 0 (the brand accent) to 30. Roles are numbers rather than
    words because they stand for places in a sequence of hues; 15 to 29 repeat earlier ones on purpose. */
enum class AccentColorRole : int
{
    brand = 0,
    last = 30
};

constexpr AccentColorRole accentRole (int id)
{
    return static_cast<AccentColorRole> (id);
}

} // namespace quillon::ui_pro::style
