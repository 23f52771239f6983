#pragma once

#include "ui_pro/style/AccentColorRole.h"
#include "ui_pro/style/ButtonTokens.h"
#include "ui_pro/style/HeaderToolTokens.h"
#include "ui_pro/style/KnobTokens.h"
#include "ui_pro/style/ListTokens.h"
#include "ui_pro/style/MeterTokens.h"
#include "ui_pro/style/Palette.h"
#include "ui_pro/style/PresetBrowserTokens.h"
#include "ui_pro/style/ResizeHandleTokens.h"
#include "ui_pro/style/Slots.h"
#include "ui_pro/style/SurfaceTokens.h"

namespace quillon::ui_pro::style
{

/** The design tokens that every control takes its colours and sizes from: one record, built once, never changed.
    Lengths are design pixels. The token groups of single controls lie in headers of their own and are members here. */
struct Theme
{
    /** The shared instance, valid to the end of the process. Any thread. */
    static const Theme& get();

    static const Palette& palette() { return get().core; }

    /** The colour of a role; the brand accent for 0 and for anything outside the table. */
    static juce::Colour accentForId (AccentColorRole role);

    /** The colour of the role with this number. */
    static juce::Colour accent (int role) { return accentForId (accentRole (role)); }

    /** How much larger than the design canvas an area is: the smaller ratio of the two sides; 1 for an empty area. */
    static float scaleFor (juce::Rectangle<int> area);

    /** The largest rectangle of the design's aspect ratio within an area, centred. */
    static juce::Rectangle<int> centredDesignBounds (juce::Rectangle<int> area);

    int designWidth = 1672;
    int designHeight = 951;
    int minimumWidth = 1338;
    int minimumHeight = 761;

    float panelCornerRadius = 12.0f;
    float strokeWidth = 1.0f;
    float strokeWidthStrong = 1.25f;
    float strokeWidthHeavy = 1.5f;

    Palette core;
    HeaderSlots header;
    FooterSlots footer;
    MeterTokens meter;
    HeaderToolTokens headerTools;
    ListTokens menu { ListTokens::forMenu() };
    ListTokens choices;
    ListTokens modes { ListTokens::forModes() };
    ResizeHandleTokens resizeHandle;
    KnobTokens knob;
    ButtonTokens button;
    SurfaceTokens surface;
    PresetBrowserTokens presetBrowser;
};

} // namespace quillon::ui_pro::style
