#include "ui_pro/controls/presets/PresetBrowserLayout.h"

#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillon::ui_pro::controls::presets
{
namespace
{

template <typename Items, typename Area>
int indexAt (const Items& items, juce::Point<int> point, Area&& areaOf)
{
    const auto found = std::find_if (
        std::begin (items), std::end (items), [&] (const auto& item) { return areaOf (item).contains (point); });
    return found != std::end (items) ? static_cast<int> (std::distance (std::begin (items), found)) : -1;
}

int actionIndexAt (juce::Point<int> point)
{
    return indexAt (actions(), point, [] (const Action& action) { return action.area; });
}

} // namespace

const std::array<Action, 7>& actions()
{
    static const std::array<Action, 7> all { {
        { "LOAD", "LOAD", { 834, 427, 186, 34 } },
        { "SAVE AS", "SAVE AS", { 834, 468, 186, 30 } },
        { "RENAME", "RENAME", { 834, 503, 186, 30 } },
        { "DUPLICATE", "DUPL.", { 834, 538, 90, 30 } },
        { "DELETE", "DELETE", { 930, 538, 90, 30 } },
        { "IMPORT", "IMPORT", { 834, 573, 90, 30 } },
        { "EXPORT", "EXPORT", { 930, 573, 90, 30 } },
    } };
    return all;
}

juce::String actionAt (juce::Point<int> point)
{
    const auto index = actionIndexAt (point);
    return index >= 0 ? actions()[static_cast<std::size_t> (index)].text : juce::String();
}

Hit hitAt (juce::Point<int> point)
{
    if (closeButton.contains (point))
        return { Target::close, 0 };

    if (const auto row = indexAt (collectionRows, point, [] (const auto& area) { return area; }); row >= 0)
        return { Target::collection, row };

    if (table.contains (point))
        return { Target::row, (point.y - table.getY()) / style::Theme::get().presetBrowser.rowHeight };

    if (const auto action = actionIndexAt (point); action >= 0)
        return { Target::action, action };

    for (const auto& [area, target] : { std::pair { filterButton, Target::filters },
             { categoryFilter, Target::category }, { authorFilter, Target::author }, { sortToggle, Target::sort } })
        if (area.contains (point))
            return { target, 0 };

    return {};
}

int firstLineToShow (int line, int firstLine, int capacity, int count)
{
    if (line >= 0)
        firstLine = std::clamp (firstLine, line - capacity + 1, line);

    return std::clamp (firstLine, 0, std::max (count - capacity, 0));
}

} // namespace quillon::ui_pro::controls::presets
