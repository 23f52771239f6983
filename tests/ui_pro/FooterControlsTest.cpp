#include "tests/support/Components.h"
#include "tests/support/RepaintWatch.h"
#include "tests/support/Window.h"

#include "ui_pro/controls/footer/FooterFigures.h"
#include "ui_pro/controls/footer/OutputModeControl.h"
#include "ui_pro/controls/footer/OversamplingControl.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro::controls;

TEST (FooterControls, SanitiseAndShowTheirValues)
{
    constexpr auto nan = std::numeric_limits<double>::quiet_NaN();

    SampleRateControl rate;
    for (const auto& [hz, text] : std::vector<std::pair<double, const char*>> { { 0.0, "48.0 kHz" },
             { nan, "48.0 kHz" }, { 500.0, "1.0 kHz" }, { 44100.0, "44.1 kHz" }, { 768000.0, "384.0 kHz" } })
    {
        rate.setSampleRate (hz);
        EXPECT_EQ (rate.getValueText(), text) << hz;
    }
    EXPECT_EQ (rate.getTooltip(), "SR\n384.0 kHz");

    CpuUsageControl cpu;
    LatencyControl latency;
    for (const auto& [value, text] : std::vector<std::pair<double, juce::String>> {
             { 1500.0, "999.9" }, { nan, "0.0" }, { -3.0, "0.0" }, { 12.34, "12.3" } })
    {
        cpu.setCpuLoad (static_cast<float> (value));
        latency.setLatency (static_cast<float> (value));
        EXPECT_EQ (cpu.getValueText(), text + "%") << value;
        EXPECT_EQ (latency.getValueText(), text + " ms") << value;
    }
}

TEST (FooterControls, RepaintOnceForOneChange)
{
    SampleRateControl rate;
    RepaintWatch watch (rate);
    rate.setSampleRate (96000.0);
    rate.setSampleRate (96000.0);
    EXPECT_EQ (watch.takeCount(), 1);
    EXPECT_LT (watch.takeArea().getHeight(), rate.getHeight()) << "the caption stays";
}

TEST (OutputModeControl, ItsKnobChoosesAMode)
{
    OutputModeControl output;
    output.setMode (1);
    EXPECT_EQ (output.getTooltip(), "OUT:\nStereo");

    std::vector<int> chosen;
    output.onModeChange = [&chosen] (int mode) { chosen.push_back (mode); };
    output.getKnob().setValueFromUser (0.9f);
    EXPECT_EQ (chosen, std::vector<int> { 2 });
    EXPECT_EQ (output.getValueText(), "Multi");
}

struct OversamplingRig
{
    OversamplingRig()
    {
        window.addAndMakeVisible (control);
        control.setTopLeftPosition (100, 156);
    }

    void clickControl() { window.click (control.getBounds().getCentre()); }

    void clickRow (const juce::String& text)
    {
        control.openPopup();
        window.click (middleOf (*control.getPopup(), text));
    }

    void connect()
    {
        control.currentMode = [this] { return control.getMode(); };
        control.onModeChange = [this] (int mode)
        {
            chosen.push_back (mode);
            control.setMode (mode);
        };
    }

    Window window { 400, 200 };
    OversamplingControl control;
    std::vector<int> chosen;
};

TEST (OversamplingControl, AClickOpensItsListAboveItAndAnotherClosesIt)
{
    OversamplingRig rig;
    rig.clickControl();
    ASSERT_NE (rig.control.getPopup(), nullptr);
    EXPECT_LE (rig.control.getPopup()->getListBounds().getBottom(), rig.control.getY());
    EXPECT_LT (middleOf (rig.window, "Master (8x)").y, middleOf (rig.window, "Live (1x)").y) << "the highest on top";
    rig.clickControl();
    EXPECT_EQ (rig.control.getPopup(), nullptr);

    const auto* const spoken =
        findTitled (rig.window, "Oversampling")->getChildComponent (0)->getAccessibilityHandler();
    EXPECT_EQ (spoken->getValueInterface()->getCurrentValueAsString(), "Live (1x)");
    EXPECT_TRUE (spoken->getCurrentState().isCollapsed());
}

TEST (OversamplingControl, PassesAChoiceOnlyWithBothHooksAndPermission)
{
    OversamplingRig rig;
    rig.control.onModeChange = [&rig] (int mode) { rig.chosen.push_back (mode); };
    rig.clickRow ("Master (8x)");
    EXPECT_TRUE (rig.chosen.empty()) << "one hook is not enough";
    EXPECT_EQ (rig.control.getPopup(), nullptr);

    rig.connect();
    rig.clickRow ("Master (8x)");
    rig.clickRow ("Master (8x)"); // it is the current one by now
    rig.clickRow ("Design (2x)");
    EXPECT_EQ (rig.chosen, (std::vector<int> { 3, 1 }));
    EXPECT_EQ (rig.control.getValueText(), "Design (2x)");

    rig.control.mayChangeModeTo = [] (int mode) { return mode != 2; };
    rig.clickRow ("Mix (4x)");
    EXPECT_EQ (rig.control.getMode(), 1);

    rig.control.openPopup();
    rig.window.click (rig.control.getPopup()->getListBounds().getTopLeft().translated (2, 2));
    EXPECT_NE (rig.control.getPopup(), nullptr) << "a click beside the rows";
}

} // namespace
} // namespace kestreleq::test
