#pragma once

namespace quillon::ui_pro::style
{

/** Sizes of the preset selector, its browser and their lists, in design pixels. */
struct PresetBrowserTokens
{
    int rowHeight = 34;
    int menuRowHeight = 30;
    int gapBelowSelector = 8;

    float controlRadius = 6.0f;

    float labelText = 12.0f; // captions and headings
    float bodyText = 13.5f;  // buttons, rows and values
    float nameText = 18.0f;  // the selected preset's name
};

} // namespace quillon::ui_pro::style
