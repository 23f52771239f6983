#include "ui_pro/controls/presets/PresetFilterChoices.h"

#include "ui_pro/controls/presets/PresetSelector.h"

namespace quillon::ui_pro::controls::presets
{

std::vector<PresetFilterMenu::Item> filterChoices (PresetSelector& selector, bool withCategories, bool withAuthors)
{
    std::vector<PresetFilterMenu::Item> items;
    const auto& library = selector.getLibrary();
    const auto add = [&] (const char* heading, juce::StringArray values, const juce::String& current,
                         void (PresetSelector::*choose) (const juce::String&))
    {
        if (withCategories && withAuthors)
            items.push_back ({ heading, false, nullptr });

        values.insert (0, "All");

        for (const auto& value : values)
            items.push_back ({ value, value.equalsIgnoreCase (current),
                [&selector, choose, value] { (selector.*choose) (value); } });
    };

    if (withCategories)
        add ("CATEGORY", library.getCategories(), library.getCategoryFilter(), &PresetSelector::setCategoryFilter);

    if (withAuthors)
        add ("AUTHOR", library.getAuthors(), library.getAuthorFilter(), &PresetSelector::setAuthorFilter);

    return items;
}

} // namespace quillon::ui_pro::controls::presets
