#include "tests/support/Presets.h"

#include "ui_pro/controls/presets/PresetLibrary.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using quillon::ui_pro::controls::PresetEntry;
using quillon::ui_pro::controls::PresetLibrary;
using quillon::ui_pro::controls::PresetOrigin;
using Ids = std::vector<int>;

PresetEntry named (int id, const char* name, bool isLoaded = false)
{
    PresetEntry entry;
    entry.id = id;
    entry.name = name;
    entry.isLoaded = isLoaded;
    return entry;
}

TEST (PresetLibrary, FiltersBySearchCollectionCategoryAndAuthor)
{
    PresetLibrary library;
    auto entries = factoryEntries();
    entries[2].origin = PresetOrigin::user;
    entries[3].isRecent = true;
    entries[4].isFavourite = true;
    entries[5].category = "Drums";
    entries[5].author = "Somebody";
    library.setEntries (entries);
    const auto& ids = library.getVisibleIds();

    const auto found = [&] (const char* text)
    {
        library.setSearchText (text);
        return ids;
    };
    EXPECT_EQ (found (" AIR "), (Ids { 3, 1 })); // a name, a description
    EXPECT_EQ (found ("init"), (Ids { 0 }));     // a tag
    EXPECT_EQ (found ("drum"), (Ids { 5 }));     // a category
    EXPECT_EQ (found ("somebody"), (Ids { 5 })); // an author
    EXPECT_EQ (found ("Kestr").size(), 6u);      // a mode
    EXPECT_EQ (found ("reverb"), Ids {});
    EXPECT_EQ (library.getSelectedId(), PresetLibrary::none);
    EXPECT_EQ (found ("  ").size(), 6u);

    const std::vector<Ids> collections { { 2, 3, 0, 5, 4, 1 }, { 3, 0, 5, 4, 1 }, { 2 }, { 3 }, { 4 } };

    for (int i = 4; i >= 0; --i)
    {
        library.setCollection (i);
        EXPECT_EQ (ids, collections[static_cast<std::size_t> (i)]) << PresetLibrary::collectionName (i);
    }
    EXPECT_FALSE (library.setCollection (5)) << "reads as all presets";
    EXPECT_EQ (PresetLibrary::collectionName (-1), "All Presets");

    library.setCategoryFilter (" drums ");
    EXPECT_EQ (ids, Ids { 5 });
    EXPECT_EQ (library.getCategoryFilter(), "drums");
    library.setAuthorFilter ("Quillon");
    EXPECT_EQ (ids, Ids {});
    library.setCategoryFilter ("aLL");
    EXPECT_EQ (ids, (Ids { 2, 3, 0, 4, 1 }));
    EXPECT_EQ (library.getCategoryFilter(), "All");
    EXPECT_EQ (library.getCategories(), juce::StringArray ("Drums", "Factory"));
}

TEST (PresetLibrary, SortsByNameAndEqualNamesByIdBothWays)
{
    PresetLibrary library;
    library.setEntries ({ named (5, "beta"), named (9, "Alpha"), named (2, "ALPHA"), named (3, "Gamma") });
    EXPECT_EQ (library.getVisibleIds(), (Ids { 2, 9, 5, 3 }));
    library.setSortDescending (true);
    EXPECT_EQ (library.getVisibleIds(), (Ids { 3, 5, 2, 9 }));
}

TEST (PresetLibrary, KeepsTheSelectionWhileItCan)
{
    PresetLibrary library;
    library.setEntries (factoryEntries());
    EXPECT_EQ (library.getSelectedId(), 1) << "the loaded one";

    EXPECT_FALSE (library.select (17));
    library.setSearchText ("air");
    EXPECT_FALSE (library.select (0)) << "not visible";
    EXPECT_EQ (library.getSelectedId(), 1);
    library.setSearchText ("boost");
    EXPECT_EQ (library.getSelectedId(), 2) << "the first visible one";

    EXPECT_TRUE (library.setEntries ({ named (2, "Quiet"), named (8, "Boost", true) }));
    EXPECT_EQ (library.getSelectedId(), 2) << "still there, though not visible";
    EXPECT_TRUE (library.setEntries ({ named (3, "Boost"), named (8, "Loud", true) }));
    EXPECT_EQ (library.getSelectedId(), 3) << "the loaded one is not visible";
    EXPECT_FALSE (library.setEntries ({ named (3, " Boost"), named (8, "Loud ", true) })) << "nothing new";

    library.setSearchText ({});
    EXPECT_TRUE (library.moveSelection (5));
    EXPECT_EQ (library.getSelectedId(), 8);
    EXPECT_FALSE (library.moveSelection (1));
    EXPECT_TRUE (library.moveSelection (-1));
    EXPECT_EQ (library.getSelectedId(), 3);
}

} // namespace
} // namespace kestreleq::test
