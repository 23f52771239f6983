#pragma once

#include <juce_graphics/juce_graphics.h>

#include <array>
#include <cstddef>

/** Where everything stands in the preset browser: design pixels, measured from its top left corner. */
namespace quillon::ui_pro::controls::presets
{

inline constexpr int browserWidth = 1052;
inline constexpr int browserHeight = 656;

inline const juce::Rectangle<int> searchField { 16, 20, 254, 34 };
inline const juce::Rectangle<int> filterButton { 280, 20, 38, 34 };
inline const juce::Rectangle<int> categoryFilter { 338, 20, 150, 34 };
inline const juce::Rectangle<int> authorFilter { 504, 20, 146, 34 };
inline const juce::Rectangle<int> sortToggle { 662, 20, 150, 34 };
inline const juce::Rectangle<int> closeButton { 1008, 20, 28, 34 };

inline const std::array<juce::Rectangle<int>, 5> collectionRows { { { 16, 92, 208, 34 }, { 16, 132, 208, 34 },
    { 16, 172, 208, 34 }, { 16, 212, 208, 34 }, { 16, 252, 208, 34 } } };
inline const juce::Rectangle<int> collectionsHeading { 16, 66, 208, 24 };
inline const juce::Rectangle<int> previewHeading { 16, 306, 208, 24 };
inline const juce::Rectangle<int> preview { 16, 334, 208, 284 };

inline const juce::Rectangle<int> table { 238, 104, 570, 514 };
inline const juce::Rectangle<int> statusLine { 238, 622, 570, 24 };

struct Column
{
    const char* title;
    juce::Rectangle<int> header;
};

inline const std::array<Column, 4> columns { { { "PRESET NAME", { 302, 70, 188, 34 } },
    { "CATEGORY", { 500, 70, 96, 34 } }, { "AUTHOR", { 602, 70, 98, 34 } }, { "MODE", { 714, 70, 80, 34 } } } };

inline const juce::Rectangle<int> detailName { 834, 96, 186, 30 };
inline const juce::Rectangle<int> detailSecondLine { 834, 126, 186, 24 };
inline const juce::Rectangle<int> detailAuthor { 834, 160, 186, 38 };
inline const juce::Rectangle<int> detailDescription { 834, 206, 186, 84 };
inline const juce::Rectangle<int> detailDates { 834, 294, 186, 44 };
inline const juce::Rectangle<int> detailTags { 834, 348, 186, 66 };
inline const juce::Rectangle<int> details = detailName.getUnion (detailTags);

struct Action
{
    juce::String text; // what it is known by
    juce::String label;
    juce::Rectangle<int> area;
    juce::String help;
};

/** Made on first use. */
const std::array<Action, 7>& actions();

/** Scrolls a list as little as needed to show a line of it: returns the new first line. `capacity` is how many whole
    lines fit. */
int firstLineToShow (int line, int firstLine, int capacity, int count);

} // namespace quillon::ui_pro::controls::presets
