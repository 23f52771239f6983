#include "ui_pro/controls/presets/PresetBrowserLayout.h"

#include <algorithm>

namespace quillon::ui_pro::controls::presets
{

const std::array<Action, 7>& actions()
{
    static const std::array<Action, 7> all { {
        { "LOAD", "LOAD", { 834, 427, 186, 34 }, "Put the selected preset in force and close the browser." },
        { "SAVE AS", "SAVE AS", { 834, 468, 186, 30 }, "Save the settings as a new preset." },
        { "RENAME", "RENAME", { 834, 503, 186, 30 }, "Give the selected preset another name." },
        { "DUPLICATE", "DUPL.", { 834, 538, 90, 30 }, "Copy the selected preset." },
        { "DELETE", "DELETE", { 930, 538, 90, 30 }, "Delete the selected preset." },
        { "IMPORT", "IMPORT", { 834, 573, 90, 30 }, "Read presets from files." },
        { "EXPORT", "EXPORT", { 930, 573, 90, 30 }, "Write presets into files." },
    } };
    return all;
}

int firstLineToShow (int line, int firstLine, int capacity, int count)
{
    if (line >= 0)
        firstLine = std::clamp (firstLine, line - capacity + 1, line);

    return std::clamp (firstLine, 0, std::max (count - capacity, 0));
}

} // namespace quillon::ui_pro::controls::presets
