#pragma once

#include "ui_pro/primitives/ListItem.h"

#include <vector>

namespace quillon::ui_pro::controls
{
class PresetSelector;
}

namespace quillon::ui_pro::controls::presets
{

/** What a filter's list offers for a selector's library: every category, every author, or both under headings. The
    choices refer to the selector. */
std::vector<primitives::ListItem> filterChoices (PresetSelector& selector, bool withCategories, bool withAuthors);

} // namespace quillon::ui_pro::controls::presets
