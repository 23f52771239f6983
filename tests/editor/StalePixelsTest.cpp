#include "tests/support/EditorRig.h"
#include "tests/support/Presets.h"
#include "tests/support/RepaintWatch.h"
#include "tests/support/Signals.h"

#include "ui_pro/controls/footer/FooterFigures.h"
#include "ui_pro/controls/meters/MeterPair.h"
#include "ui_pro/controls/meters/MeterStrip.h"
#include "ui_pro/controls/presets/PresetBrowserPopup.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;

TEST (StalePixels, NoneIsLeftInTheWindowByAParameterASwitchOrASignal)
{
    EditorRig rig;
    rig.set ("link", 0.0f);
    rig.set ("airBand", 0.5f);
    rig.tick();

    for (const auto& info : parameterTable)
        for (const auto value : { 1.0f, info.defaultValue })
            EXPECT_EQ (countStalePixels (*rig.editor,
                           [&]
                           {
                               rig.set (info.id, value);
                               rig.tick();
                           }),
                0)
                << info.id;

    for (const auto level : { 0.5, 0.05, 0.0 })
        EXPECT_EQ (countStalePixels (*rig.editor,
                       [&]
                       {
                           Stereo signal { sine (500.0, 48000.0, 9600, level), whiteNoise (1, 9600, level) };
                           rig.process (signal);
                           rig.now += 300.0;
                           rig.tick();
                       }),
            0)
            << level;
}

TEST (StalePixels, NoneIsLeftInAControl)
{
    double now = 1000.0;
    const auto clock = [&now] { return now; };

    MeterStrip strip;
    strip.setSize (90, 196);
    MeterPair pair ("L", "R");
    pair.setSize (360, 44);
    CpuUsageControl load;
    strip.clock = pair.clock = clock;

    for (const auto& [left, right] : { std::pair { 1.0f, 0.01f }, { 0.0f, 1.0f }, { 0.0f, 0.0f } })
    {
        now += 2000.0; // enough to fall from anywhere
        EXPECT_EQ (countStalePixels (strip, [&, l = left, r = right] { strip.setLevels (l, r); }), 0) << left;
        EXPECT_EQ (countStalePixels (pair, [&, l = left, r = right] { pair.setLevels (l, r); }), 0) << left;
        EXPECT_EQ (countStalePixels (load, [&, l = left] { load.setCpuLoad (40.0f * l); }), 0) << left;
    }

    juce::Component content;
    content.setSize (1672, 858);
    PresetSelector selector;
    content.addAndMakeVisible (selector);
    selector.setBounds (1108, 18, 286, 32);
    selector.setBrowserParent (&content);
    auto entries = factoryEntries();
    selector.setEntries (entries);
    selector.setCurrentPreset (1, 6, "Vocal Presence");
    selector.openBrowser();

    for (const auto& change :
        std::initializer_list<std::function<void()>> { [&] { selector.setCurrentPreset (4, 6, "Smiley Curve"); },
            [&] { selector.select (0); }, [&] { selector.setSortDescending (true); },
            [&] { selector.setSearchText ("air"); }, [&] { selector.setSearchText ({}); } })
        EXPECT_EQ (countStalePixels (*selector.getBrowser(), change), 0);
}

} // namespace
} // namespace kestreleq::test
