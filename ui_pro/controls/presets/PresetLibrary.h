#pragma once

#include "ui_pro/controls/presets/PresetEntry.h"

#include <vector>

namespace quillon::ui_pro::controls
{

/** The presets that a selector offers: which of them are shown, in which order, and which one is selected. Knows texts
    and flags only; loading and storing presets are the owner's. Every setter returns whether anything changed. Message
    thread. */
class PresetLibrary
{
public:
    static constexpr int none = -1;
    static constexpr int numCollections = 5;

    /** Replaces all entries. Blank texts get their defaults, and of several loaded entries the one with the smallest id
        stays loaded. The selection is kept while its entry exists. */
    bool setEntries (std::vector<PresetEntry> newEntries);

    /** What is in force now: its index, how many presets there are, and its name. */
    bool setCurrent (int index, int count, const juce::String& name);

    /** Such as "01  Flat". */
    juce::String getCurrentLabel() const;

    /** "All Presets" for 0 and for any number without a collection. */
    static juce::String collectionName (int collection);

    bool setCollection (int newCollection);
    bool setCategoryFilter (const juce::String& category); // "All" or blank shows every category
    bool setAuthorFilter (const juce::String& author);     // "All" or blank shows every author
    bool setSearchText (const juce::String& text);
    bool setSortDescending (bool shouldDescend);

    int getCollection() const { return collection; }

    const juce::String& getSearchText() const { return searchText; }

    bool isSortDescending() const { return sortDescending; }

    /** The filters as shown: "All" while there is none. */
    juce::String getCategoryFilter() const;
    juce::String getAuthorFilter() const;
    bool isFiltered() const;

    /** What the filters can be set to, each once, in alphabetical order. */
    juce::StringArray getCategories() const;
    juce::StringArray getAuthors() const;

    /** The ids of what the collection, the filters and the search let through, sorted by name. */
    const std::vector<int>& getVisibleIds() const { return visibleIds; }

    /** The place of an entry among the visible ones, or -1. */
    int visibleIndexOf (int id) const;

    /** Null when there is none; entries with a negative id are not found. */
    const PresetEntry* find (int id) const;

    int getSelectedId() const { return selectedId; }

    const PresetEntry* getSelected() const { return find (selectedId); }

    /** Ignored unless the entry is visible. */
    bool select (int id);

    /** Moves the selection down by so many visible entries (up when negative), stopping at the ends. */
    bool moveSelection (int rows);

    /** Selects the entry that is in force, or none; what hides it is cleared: collection, filters and search. */
    void selectInForce();

    bool isInForce (const PresetEntry& entry) const { return entry.isLoaded || entry.id == currentIndex; }

private:
    bool isVisible (const PresetEntry& entry) const;
    void listVisible();
    void selectVisible(); // keeps the selection while it is visible, or selects the first entry
    juce::StringArray distinct (juce::String PresetEntry::*field) const;

    template <typename Value>
    bool change (Value& stored, const Value& newValue);

    std::vector<PresetEntry> entries;
    std::vector<int> visibleIds;

    int currentIndex = none;
    int currentCount = 0;
    juce::String currentName;

    int collection = 0;
    juce::String categoryFilter;
    juce::String authorFilter;
    juce::String searchText;
    bool sortDescending = false;
    int selectedId = none;
};

} // namespace quillon::ui_pro::controls
