#include "tests/support/Mouse.h"
#include "tests/support/RepaintWatch.h"

#include "ui_pro/controls/footer/FooterFigures.h"
#include "ui_pro/controls/footer/OutputModeControl.h"
#include "ui_pro/controls/footer/OversamplingControl.h"
#include "ui_pro/controls/footer/OversamplingPopup.h"

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
    explicit OversamplingRig (juce::Point<int> at = { 100, 156 })
    {
        window.setSize (240, 200);
        window.addAndMakeVisible (control);
        control.setTopLeftPosition (at);
    }

    void clickControl() { Mouse (control).click ({ 10.0f, 10.0f }); }

    void clickRow (int row)
    {
        control.openPopup();
        Mouse (control.getPopup()->getRow (row)).click ({ 10.0f, 10.0f });
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

    juce::Component window;
    OversamplingControl control;
    std::vector<int> chosen;
};

TEST (OversamplingControl, OpensAndClosesItsPopupWithinTheWindow)
{
    for (const juce::Point<int> at : { juce::Point<int> (100, 156), { 236, 156 }, { -50, 0 }, { 0, 80 } })
    {
        OversamplingRig rig (at);
        rig.clickControl();
        ASSERT_TRUE (rig.control.isPopupOpen());
        EXPECT_TRUE (rig.window.getLocalBounds().contains (rig.control.getPopup()->getBounds())) << at.toString();
        rig.clickControl();
        EXPECT_FALSE (rig.control.isPopupOpen());
    }
}

TEST (OversamplingControl, PassesAChoiceOnlyWithBothHooksAndPermission)
{
    OversamplingRig rig;
    rig.control.onModeChange = [&rig] (int mode) { rig.chosen.push_back (mode); };
    rig.clickRow (0);
    EXPECT_TRUE (rig.chosen.empty()) << "one hook is not enough";
    EXPECT_FALSE (rig.control.isPopupOpen());

    rig.connect();
    rig.clickRow (0); // Master
    rig.clickRow (0); // it is the current one by now
    rig.clickRow (2); // Design
    EXPECT_EQ (rig.chosen, (std::vector<int> { 3, 1 }));
    EXPECT_EQ (rig.control.getValueText(), "Design (2x)");

    rig.control.mayChangeModeTo = [] (int mode) { return mode != 2; };
    rig.clickRow (1);
    EXPECT_EQ (rig.control.getMode(), 1);

    rig.control.openPopup();
    Mouse (*rig.control.getPopup()).click ({ 1.0f, 1.0f });
    EXPECT_TRUE (rig.control.isPopupOpen()) << "a click beside the rows";
}

} // namespace
} // namespace kestreleq::test
