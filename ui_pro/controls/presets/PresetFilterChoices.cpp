#include "ui_pro/controls/presets/PresetFilterChoices.h"

#include "ui_pro/controls/presets/PresetSelector.h"

namespace quillon::ui_pro::controls::presets
{

std::vector<primitives::ListItem> filterChoices (PresetSelector& selector, bool withCategories, bool withAuthors)
{
    std::vector<primitives::ListItem> items;
    const auto& library = selector.getLibrary();
    const auto add = [&] (const char* heading, juce::StringArray values, const juce::String& current,
                         void (PresetSelector::*choose) (const juce::String&))
    {
        if (withCategories && withAuthors)
            items.push_back (primitives::ListItem::headed (heading));

        values.insert (0, "All");

        for (const auto& value : values)
        {
            auto& item = items.emplace_back();
            item.text = value;
            item.choose = [&selector, choose, value] { (selector.*choose) (value); };
            item.isTicked = value.equalsIgnoreCase (current);
        }
    };

    if (withCategories)
        add ("CATEGORY", library.getCategories(), library.getCategoryFilter(), &PresetSelector::setCategoryFilter);

    if (withAuthors)
        add ("AUTHOR", library.getAuthors(), library.getAuthorFilter(), &PresetSelector::setAuthorFilter);

    return items;
}

} // namespace quillon::ui_pro::controls::presets
