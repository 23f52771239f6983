#pragma once

namespace quillon::ui_pro::style
{

/** Names a colour of the theme's accent table by its number, 0 (the brand accent) to 30. Roles are numbers rather than
    words because they stand for places in a sequence of hues; 15 to 29 repeat earlier ones on purpose. */
enum class AccentColorRole : int
{
    brand = 0,
    role1,
    role2,
    role3,
    role4,
    role5,
    role6,
    role7,
    role8,
    role9,
    role10,
    role11,
    role12,
    role13,
    role14,
    role15,
    role16,
    role17,
    role18,
    role19,
    role20,
    role21,
    role22,
    role23,
    role24,
    role25,
    role26,
    role27,
    role28,
    role29,
    role30
};

constexpr AccentColorRole accentRole (int id)
{
    return static_cast<AccentColorRole> (id);
}

} // namespace quillon::ui_pro::style
