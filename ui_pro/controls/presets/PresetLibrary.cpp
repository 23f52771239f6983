#include "ui_pro/controls/presets/PresetLibrary.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

enum Collection : int
{
    allPresets,
    factoryPresets,
    userPresets,
    recentPresets,
    favouritePresets
};

constexpr std::array<const char*, PresetLibrary::numCollections> collectionNames { "All Presets", "Factory", "User",
    "Recent", "Favorites" };

bool isCollection (int number)
{
    return number >= 0 && number < PresetLibrary::numCollections;
}

void trimOrDefault (juce::String& text, const char* defaultText)
{
    text = text.trim();

    if (text.isEmpty())
        text = defaultText;
}

void normalise (PresetEntry& entry)
{
    trimOrDefault (entry.name, "Untitled");
    trimOrDefault (entry.category, "Uncategorized");
    trimOrDefault (entry.author, "Unknown");
    trimOrDefault (entry.mode, "Default");
    trimOrDefault (entry.description, "No description.");
    trimOrDefault (entry.created, "-");
    trimOrDefault (entry.modified, "-");
    entry.tags.trim();
    entry.tags.removeEmptyStrings();
}

void keepOneLoaded (std::vector<PresetEntry>& entries)
{
    const PresetEntry* kept = nullptr;

    for (const auto& entry : entries)
        if (entry.isLoaded && entry.id >= 0 && (kept == nullptr || entry.id < kept->id))
            kept = &entry;

    for (auto& entry : entries)
        entry.isLoaded = &entry == kept;
}

bool isNoFilter (const juce::String& filter)
{
    const auto trimmed = filter.trim();
    return trimmed.isEmpty() || trimmed.equalsIgnoreCase ("All");
}

bool passes (const juce::String& filter, const juce::String& value)
{
    return isNoFilter (filter) || value.equalsIgnoreCase (filter.trim());
}

bool isInCollection (int collection, const PresetEntry& entry)
{
    switch (collection)
    {
        case factoryPresets:
            return entry.origin == PresetOrigin::factory;
        case userPresets:
            return entry.origin == PresetOrigin::user;
        case recentPresets:
            return entry.isRecent;
        case favouritePresets:
            return entry.isFavourite;
        default:
            return true;
    }
}

bool isFoundBy (const juce::String& search, const PresetEntry& entry)
{
    const auto sought = search.trim();
    const auto holds = [&sought] (const juce::String& text) { return text.containsIgnoreCase (sought); };

    return sought.isEmpty() || holds (entry.name) || holds (entry.category) || holds (entry.author) ||
        holds (entry.mode) || holds (entry.description) || std::any_of (entry.tags.begin(), entry.tags.end(), holds);
}

} // namespace

bool PresetLibrary::setEntries (std::vector<PresetEntry> newEntries)
{
    for (auto& entry : newEntries)
        normalise (entry);

    keepOneLoaded (newEntries);

    if (newEntries == entries)
        return false;

    entries = std::move (newEntries);
    listVisible();

    if (find (selectedId) != nullptr)
        return true;

    const auto loaded =
        std::find_if (entries.begin(), entries.end(), [] (const PresetEntry& entry) { return entry.isLoaded; });
    selectedId = loaded != entries.end() ? loaded->id : none;
    selectVisible();
    return true;
}

bool PresetLibrary::setCurrent (int index, int count, const juce::String& name)
{
    count = std::max (count, 0);

    if (index == currentIndex && count == currentCount && name == currentName)
        return false;

    currentIndex = index;
    currentCount = count;
    currentName = name;
    return true;
}

void PresetLibrary::selectInForce()
{
    const auto* inForce = find (currentIndex);

    for (const auto& entry : entries)
        if (inForce == nullptr && entry.isLoaded)
            inForce = &entry;

    selectedId = inForce != nullptr ? inForce->id : none;

    if (inForce != nullptr && visibleIndexOf (selectedId) < 0)
    {
        collection = allPresets;
        categoryFilter = authorFilter = searchText = {};
        listVisible();
    }
}

juce::String PresetLibrary::getCurrentLabel() const
{
    if (currentIndex < 0 || currentIndex >= currentCount)
        return "--  No Preset";

    return juce::String (currentIndex + 1).paddedLeft ('0', 2) + "  " + currentName;
}

juce::String PresetLibrary::collectionName (int number)
{
    return collectionNames[static_cast<std::size_t> (isCollection (number) ? number : allPresets)];
}

template <typename Value>
bool PresetLibrary::change (Value& stored, const Value& newValue)
{
    if (stored == newValue)
        return false;

    stored = newValue;
    listVisible();
    selectVisible();
    return true;
}

bool PresetLibrary::setCollection (int newCollection)
{
    return change (collection, isCollection (newCollection) ? newCollection : static_cast<int> (allPresets));
}

bool PresetLibrary::setCategoryFilter (const juce::String& category)
{
    return change (categoryFilter, category);
}

bool PresetLibrary::setAuthorFilter (const juce::String& author)
{
    return change (authorFilter, author);
}

bool PresetLibrary::setSearchText (const juce::String& text)
{
    return change (searchText, text);
}

bool PresetLibrary::setSortDescending (bool shouldDescend)
{
    return change (sortDescending, shouldDescend);
}

juce::String PresetLibrary::getCategoryFilter() const
{
    return isNoFilter (categoryFilter) ? juce::String ("All") : categoryFilter.trim();
}

juce::String PresetLibrary::getAuthorFilter() const
{
    return isNoFilter (authorFilter) ? juce::String ("All") : authorFilter.trim();
}

bool PresetLibrary::isFiltered() const
{
    return ! isNoFilter (categoryFilter) || ! isNoFilter (authorFilter);
}

juce::StringArray PresetLibrary::getCategories() const
{
    return distinct (&PresetEntry::category);
}

juce::StringArray PresetLibrary::getAuthors() const
{
    return distinct (&PresetEntry::author);
}

juce::StringArray PresetLibrary::distinct (juce::String PresetEntry::*field) const
{
    juce::StringArray values;

    for (const auto& entry : entries)
        if (entry.id >= 0)
            values.addIfNotAlreadyThere (entry.*field, true);

    values.sort (true);
    return values;
}

int PresetLibrary::visibleIndexOf (int id) const
{
    const auto found = std::find (visibleIds.begin(), visibleIds.end(), id);
    return found != visibleIds.end() ? static_cast<int> (found - visibleIds.begin()) : -1;
}

const PresetEntry* PresetLibrary::find (int id) const
{
    const auto found = std::find_if (
        entries.begin(), entries.end(), [id] (const PresetEntry& entry) { return entry.id == id && entry.id >= 0; });
    return found != entries.end() ? &*found : nullptr;
}

bool PresetLibrary::select (int id)
{
    if (id == selectedId || visibleIndexOf (id) < 0)
        return false;

    selectedId = id;
    return true;
}

bool PresetLibrary::moveSelection (int rows)
{
    if (visibleIds.empty() || rows == 0)
        return false;

    const auto last = static_cast<int> (visibleIds.size()) - 1;
    const auto from = visibleIndexOf (selectedId);
    const auto start = from >= 0 ? from + rows : (rows > 0 ? 0 : last);
    return select (visibleIds[static_cast<std::size_t> (std::clamp (start, 0, last))]);
}

bool PresetLibrary::isVisible (const PresetEntry& entry) const
{
    return entry.id >= 0 && isInCollection (collection, entry) && passes (categoryFilter, entry.category) &&
        passes (authorFilter, entry.author) && isFoundBy (searchText, entry);
}

void PresetLibrary::listVisible()
{
    struct Row
    {
        juce::String key;
        int id;
    };

    std::vector<Row> rows;

    for (const auto& entry : entries)
        if (isVisible (entry))
            rows.push_back ({ entry.name.toLowerCase(), entry.id });

    std::sort (rows.begin(), rows.end(),
        [this] (const Row& a, const Row& b)
        {
            const auto order = a.key.compare (b.key);
            return order == 0 ? a.id < b.id : (sortDescending ? order > 0 : order < 0);
        });

    visibleIds.clear();

    for (const auto& row : rows)
        visibleIds.push_back (row.id);
}

void PresetLibrary::selectVisible()
{
    if (visibleIndexOf (selectedId) < 0)
        selectedId = visibleIds.empty() ? none : visibleIds.front();
}

} // namespace quillon::ui_pro::controls
