#include "tests/support/Components.h"
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

TEST (OversamplingControl, OpensAndClosesByClicksAndPassesAChoiceOnlyWithBothHooksAndPermission)
{
    Window window (400, 200);
    OversamplingControl control;
    window.addAndMakeVisible (control);
    control.setTopLeftPosition (100, 156);
    window.click (control.getBounds().getCentre());
    ASSERT_NE (control.getPopup(), nullptr);
    EXPECT_LE (control.getPopup()->getListBounds().getBottom(), control.getY());
    window.click (control.getBounds().getCentre());
    EXPECT_EQ (control.getPopup(), nullptr);

    const auto clickRow = [&] (const juce::String& text)
    {
        control.openPopup();
        window.click (middleOf (*control.getPopup(), text));
    };
    std::vector<int> chosen;
    control.onModeChange = [&] (int mode)
    {
        chosen.push_back (mode);
        control.setMode (mode);
    };
    clickRow ("Master (8x)");
    EXPECT_TRUE (chosen.empty()) << "one hook is not enough";
    EXPECT_EQ (control.getPopup(), nullptr);

    control.currentMode = [&] { return control.getMode(); };
    clickRow ("Master (8x)");
    clickRow ("Master (8x)"); // it is the current one by now
    clickRow ("Design (2x)");
    EXPECT_EQ (chosen, (std::vector<int> { 3, 1 }));
    EXPECT_EQ (control.getValueText(), "Design (2x)");

    control.mayChangeModeTo = [] (int mode) { return mode != 2; };
    clickRow ("Mix (4x)");
    EXPECT_EQ (control.getMode(), 1);
}

} // namespace
} // namespace kestreleq::test
