#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/controls/presets/PresetBrowserPopup.h"
#include "ui_pro/controls/presets/PresetSelector.h"
#include "ui_pro/style/Theme.h"

#include <array>
#include <functional>

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;
using controls::PresetEntry;
using controls::PresetSelector;

std::vector<PresetEntry> examples()
{
    struct Example
    {
        const char* name;
        const char* description;
    };

    constexpr std::array<Example, 6> list { { { "Flat", "All bands centered, no EQ" },
        { "Vocal Presence", "Mid-forward, gentle air lift" }, { "Bass Boost", "Sub and 40Hz lift, slight high trim" },
        { "Bright & Airy", "High-shelf air with gentle 2.5K push" },
        { "Smiley Curve", "Scooped mids, boosted lows and highs" },
        { "Lo-Fi Crunch", "Heavy tilt with break mode engaged" } } };
    std::vector<PresetEntry> entries;

    for (std::size_t i = 0; i < list.size(); ++i)
    {
        PresetEntry entry;
        entry.id = static_cast<int> (i);
        entry.name = list[i].name;
        entry.description = list[i].description;
        entry.category = "Factory";
        entry.author = "Quillon";
        entry.mode = "Kestrel";
        entry.tags =
            i == 0 ? juce::StringArray { "flat", "init", "factory" } : juce::StringArray { "factory", "kestrel", "eq" };
        entry.isLoaded = i == 1;
        entries.push_back (entry);
    }

    return entries;
}

/** Many presets, some of them with texts too long for their places. */
std::vector<PresetEntry> manyExamples()
{
    std::vector<PresetEntry> entries;

    for (int i = 0; i < 40; ++i)
    {
        PresetEntry entry;
        entry.id = i;
        entry.name = "Preset " + juce::String (i + 1).paddedLeft ('0', 2);
        entry.category = i % 3 == 0 ? "Mastering chain" : "Vocals";
        entry.author = i % 2 == 0 ? "Somebody with a long name" : "Quillon";
        entry.isLoaded = i == 21;
        entries.push_back (entry);
    }

    entries[20].name = "Preset 21 with a name that is far too long for its column";
    entries[20].description = "A description that needs several lines to say what little there is to say about it, and "
                              "then some more.";
    entries[20].tags = { "mastering", "wide", "a tag of some length", "glue", "slow", "old" };
    return entries;
}

void connect (PresetSelector& selector)
{
    PresetSelector::Hooks hooks;
    hooks.initialise = hooks.previous = hooks.next = [] {};
    hooks.load = [] (int) {};
    selector.setHooks (hooks);
}

void addStrip (GallerySheet& sheet, const juce::String& caption, const juce::String& name,
    const std::function<void (PresetSelector&)>& change)
{
    auto selector = std::make_unique<PresetSelector>();
    selector->setSize (286, 32);
    selector->setCurrentPreset (1, 6, name);
    connect (*selector);
    change (*selector);
    sheet.add (caption, std::move (selector));
}

std::function<void (PresetSelector&)> inState (int part, juce::Button::ButtonState state)
{
    return [part, state] (PresetSelector& selector)
    { dynamic_cast<juce::Button&> (*selector.getChildComponent (part)).setState (state); };
}

/** The browser over an area of its own size. */
struct BrowserArea final : juce::Component
{
    BrowserArea()
    {
        setSize (controls::presets::browserWidth, 32 + 8 + controls::presets::browserHeight);
        selector.setBounds (getWidth() - 286, 0, 286, 32);
        addAndMakeVisible (selector);
        selector.setEntries (examples());
        selector.setCurrentPreset (1, 6, "Vocal Presence");
        selector.setBrowserParent (this);
        connect (selector);
        selector.openBrowser();
    }

    PresetSelector selector;
};

PresetSelector& addBrowser (GallerySheet& sheet, const juce::String& caption)
{
    return sheet.add (caption, std::make_unique<BrowserArea>()).selector;
}

void hoverRow (PresetSelector& selector, int row)
{
    auto& table = selector.getBrowser()->getTable();
    const auto at = table.getRowPosition (row, true).getCentre().toFloat();
    const auto now = juce::Time::getCurrentTime();
    table.mouseMove ({ juce::Desktop::getInstance().getMainMouseSource(), at, {}, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f, &table,
        &table, now, at, now, 1, false });
}

} // namespace

void addPresets (GallerySheet& sheet)
{
    using juce::Button;
    sheet.addSection ("Preset selector");
    const juce::String name ("Vocal Presence");
    addStrip (sheet, "At rest", name, [] (PresetSelector&) {});
    addStrip (sheet, "INIT hovered", name, inState (0, Button::buttonOver));
    addStrip (sheet, "Previous hovered", name, inState (1, Button::buttonOver));
    addStrip (sheet, "Display hovered", name, inState (2, Button::buttonOver));
    addStrip (sheet, "Next pressed", name, inState (3, Button::buttonDown));
    addStrip (sheet, "Without hooks", name, [] (PresetSelector& selector) { selector.setHooks ({}); });
    addStrip (sheet, "Disabled", name, [] (PresetSelector& selector) { selector.setEnabled (false); });
    addStrip (sheet, "Long name", "A name that is far too long for the display", [] (PresetSelector&) {});
    addStrip (sheet, "No preset", {}, [] (PresetSelector& selector) { selector.setCurrentPreset (-1, 6, {}); });
    addStrip (sheet, "Narrow", name, [] (PresetSelector& selector) { selector.setSize (150, 32); });

    sheet.addSection ("Preset browser");
    addBrowser (sheet, "All six programs").select (1);
    auto& searched = addBrowser (sheet, "A search with few results, sorted down");
    searched.setSearchText ("air");
    searched.setSortDescending (true);
    addBrowser (sheet, "A search with no result").setSearchText ("reverb");

    auto& filtered = addBrowser (sheet, "A category chosen, the author's menu open, mouse over a row");
    filtered.setCategoryFilter ("Factory");
    filtered.getBrowser()->getFilter (PresetSelector::BrowserPopup::author).onClick();
    hoverRow (filtered, 4);

    auto& many = addBrowser (sheet, "More presets than fit, texts too long; the combined filter menu; a preview");
    many.setEntries (manyExamples());
    many.select (20);
    many.setPreviewPainter (
        [] (juce::Graphics& g, juce::Rectangle<int> area, int)
        {
            const auto r = area.toFloat();
            juce::Path curve;
            curve.startNewSubPath (r.getX(), r.getCentreY());
            curve.cubicTo (r.getCentreX(), r.getY(), r.getCentreX(), r.getBottom(), r.getRight(), r.getCentreY());
            g.setColour (style::Theme::accent (5));
            g.strokePath (curve, juce::PathStrokeType (2.0f));
        });
    many.getBrowser()->getFilter (PresetSelector::BrowserPopup::both).onClick();
}

} // namespace kestreleq::shot
