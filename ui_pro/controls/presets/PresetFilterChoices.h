#pragma once

#include "ui_pro/controls/presets/PresetFilterMenu.h"

#include <vector>

namespace quillon::ui_pro::controls
{
class PresetSelector;
}

namespace quillon::ui_pro::controls::presets
{

/** What a filter menu offers for a selector's library: every category, every author, or both under headings. The
    choices refer to the selector. */
std::vector<PresetFilterMenu::Item> filterChoices (PresetSelector& selector, bool withCategories, bool withAuthors);

} // namespace quillon::ui_pro::controls::presets
