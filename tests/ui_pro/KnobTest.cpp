#include "tests/support/Mouse.h"
#include "tests/support/RepaintWatch.h"

#include "ui_pro/controls/knob/KnobControl.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace kestreleq::test
{
namespace
{

using quillon::ui_pro::controls::KnobControl;
using Box = juce::Rectangle<int>;

constexpr auto notANumber = std::numeric_limits<float>::quiet_NaN();

/** A knob that writes down its callbacks. */
struct Recorded
{
    Recorded()
    {
        knob.onDragStart = [this] { events.emplace_back ("start"); };
        knob.onValueChange = [this] (float value)
        { events.push_back (std::to_string (juce::roundToInt (value * 100))); };
        knob.onDragEnd = [this] { events.emplace_back ("end"); };
    }

    std::vector<std::string> take() { return std::exchange (events, {}); }

    KnobControl knob;
    Mouse mouse { knob };
    std::vector<std::string> events;
};

using Events = std::vector<std::string>;

TEST (Knob, LaysOutToThePixel)
{
    struct Case
    {
        int width, height, style;
        bool showLabel, showValue;
        Box label, knob, value;
    };

    const Case cases[] {
        { 86, 96, 1, true, true, { 2, 1, 82, 16 }, { 16, 22, 54, 54 }, { 2, 77, 82, 18 } },
        { 50, 96, 1, true, false, { 2, 14, 46, 16 }, { 2, 35, 46, 46 }, {} },
        { 20, 20, 1, true, true, { 2, 0, 16, 16 }, { 9, 21, 1, 1 }, { 2, 23, 16, 18 } },
        { 130, 62, 0, true, true, { 2, 0, 126, 16 }, { 23, 21, 41, 41 }, { 86, 21, 42, 41 } },
        { 4, 50, 1, true, true, {}, {}, {} },
    };

    for (const auto& expected : cases)
    {
        KnobControl knob;
        knob.setSize (expected.width, expected.height);
        knob.setLayoutStyle (expected.style);
        knob.setShowLabel (expected.showLabel);
        knob.setShowValue (expected.showValue);
        SCOPED_TRACE (std::to_string (expected.width) + " x " + std::to_string (expected.height));
        EXPECT_EQ (knob.getLabelBounds(), expected.label);
        EXPECT_EQ (knob.getKnobBounds(), expected.knob);
        EXPECT_EQ (knob.getValueBounds(), expected.value);
    }

    // The knobs of a lane: a larger diameter, smaller gaps; impossible values change nothing.
    KnobControl knob;
    knob.setSize (118, 128);
    knob.setMaxDiameter (58);
    knob.setLabelGap (2);
    knob.setValueGap (2);
    knob.setLabelHeight (-1);
    knob.setLabelGap (-1);
    EXPECT_EQ (knob.getKnobBounds(), Box (30, 34, 58, 58));
    EXPECT_EQ (knob.getValueBounds(), Box (2, 94, 114, 18));
}

TEST (Knob, TakesAnyNumberSilentlyAndShowsItAsAPercentage)
{
    Recorded recorded;
    auto& knob = recorded.knob;

    for (const auto& [set, stored, text] :
        { std::tuple (notANumber, 0.0f, "0%"), { 2.0f, 1.0f, "100%" }, { -1.0f, 0.0f, "0%" }, { 0.5f, 0.5f, "50%" },
            { 0.995f, 0.995f, "100%" }, { 0.004f, 0.004f, "0%" }, { 0.125f, 0.125f, "12%" } })
    {
        knob.setValue (set);
        EXPECT_EQ (knob.getValue(), stored);
        EXPECT_EQ (knob.getValueText(), text) << set;
    }

    EXPECT_TRUE (knob.setValueFromUser (0.25f));
    EXPECT_FALSE (knob.setValueFromUser (0.25f));
    EXPECT_TRUE (knob.setValueFromUser (notANumber));
    EXPECT_EQ (recorded.take(), (Events { "25", "0" }));

    knob.setValueText ("2.5K");
    EXPECT_EQ (knob.getValueText(), "2.5K");
    knob.clearValueText();
    EXPECT_EQ (knob.getValueText(), "0%");
}

TEST (Knob, ADragIsVerticalAndStopsAtTheEnds)
{
    Recorded recorded;
    auto& mouse = recorded.mouse;
    mouse.drag ({ 0.0f, -50.0f }); // without a press

    mouse.down ({ 10.0f, 100.0f }, juce::ModifierKeys::rightButtonModifier);
    mouse.drag ({ 300.0f, 100.0f });
    mouse.drag ({ 10.0f, 65.0f });
    mouse.drag ({ 10.0f, -100.0f });
    mouse.drag ({ 10.0f, -140.0f });
    mouse.drag ({ 10.0f, 1000.0f });
    mouse.up ({ 10.0f, 1000.0f });
    mouse.drag ({ 10.0f, 0.0f });
    EXPECT_EQ (recorded.take(), (Events { "start", "75", "100", "0", "end" }));

    recorded.knob.setEnabled (false);
    mouse.down ({ 10.0f, 100.0f });
    mouse.drag ({ 10.0f, 50.0f });
    EXPECT_EQ (recorded.take(), Events {});
}

TEST (Knob, StepsHoldADragAndAReadjustedValue)
{
    Recorded recorded;
    auto& knob = recorded.knob;
    knob.setValue (0.6f);
    knob.setSteps (5);
    EXPECT_EQ (knob.getValue(), 0.5f);

    recorded.mouse.down ({ 0.0f, 140.0f });
    recorded.mouse.drag ({ 0.0f, 126.0f }); // to 0.6
    EXPECT_EQ (knob.getValue(), 0.5f);
    recorded.mouse.drag ({ 0.0f, 121.8f }); // to 0.63
    EXPECT_EQ (knob.getValue(), 0.75f);
    recorded.mouse.up ({ 0.0f, 121.8f });
    EXPECT_EQ (recorded.take(), (Events { "start", "75", "end" }));

    knob.setValue (0.6f); // a parameter's own value is not quantised
    EXPECT_EQ (knob.getValue(), 0.6f);
}

TEST (Knob, ADoubleClickEndsTheDragBeforeItResets)
{
    Recorded recorded;
    recorded.mouse.down ({ 0.0f, 0.0f });
    EXPECT_FALSE (recorded.knob.triggerReset());
    EXPECT_TRUE (recorded.knob.isDragging());
    recorded.mouse.up ({ 0.0f, 0.0f });
    recorded.take();

    recorded.knob.onDoubleClick = [&] { recorded.events.emplace_back ("reset"); };
    recorded.mouse.doubleClick ({ 0.0f, 0.0f });
    EXPECT_EQ (recorded.take(), (Events { "start", "end", "start", "end", "reset" }));
}

TEST (Knob, AGestureNeverStaysOpen)
{
    Recorded recorded;
    recorded.mouse.down ({ 0.0f, 0.0f });
    recorded.mouse.down ({ 0.0f, 0.0f }); // a second button
    recorded.knob.setEnabled (false);
    recorded.mouse.up ({ 0.0f, 0.0f });
    EXPECT_EQ (recorded.take(), (Events { "start", "end", "start", "end" }));
}

TEST (Knob, RepaintsWhatChangedAndNothingElse)
{
    KnobControl knob;
    RepaintWatch repaints (knob);
    knob.setValue (0.25f);
    EXPECT_EQ (repaints.takeArea(), knob.getKnobBounds().getUnion (knob.getValueBounds()));

    knob.setValueText ("-12 dB");
    repaints.takeArea();
    knob.setValue (0.75f);
    EXPECT_EQ (repaints.takeArea(), knob.getKnobBounds()) << "the text has not changed";
    knob.setLabel ("GAIN");
    EXPECT_EQ (repaints.takeArea(), knob.getLocalBounds());
    repaints.takeCount();

    knob.setValue (0.75f);
    knob.setValueFromUser (0.75f);
    knob.setValueText ("-12 dB");
    knob.setLabel ("GAIN");
    knob.setSteps (0);
    knob.setMaxDiameter (0);
    knob.setShowLabel (true);
    knob.setShowValue (true);
    knob.setLayoutStyle (1);
    knob.setColourId (16);
    knob.setLabelFont (11.0f, juce::Colour (0xfff2f4f6));
    knob.setValueFont (13.0f, juce::Colour (0xfff2f4f6));
    knob.setValueFont (notANumber, juce::Colours::red);
    knob.setLabelFont (0.0f, juce::Colours::red);
    knob.setLabelHeight (-1);
    knob.setValueGap (-1);

    EXPECT_EQ (repaints.takeCount(), 0);
}

TEST (Knob, ScreenReadersAdjustItInOneGesture)
{
    Recorded recorded;
    const auto handler = recorded.knob.createAccessibilityHandler();
    EXPECT_EQ (handler->getRole(), juce::AccessibilityRole::slider);
    EXPECT_EQ (handler->getTitle(), "KNOB");

    auto* const value = handler->getValueInterface();
    value->setValue (0.25);
    EXPECT_EQ (recorded.take(), (Events { "start", "25", "end" }));
    EXPECT_EQ (value->getCurrentValueAsString(), "25%");
    value->setValueAsString ("25%"); // what was read
    value->setValueAsString ("a lot");
    EXPECT_EQ (recorded.take(), (Events { "start", "end" }));
    value->setValueAsString ("40 %");
    EXPECT_EQ (recorded.take(), (Events { "start", "40", "end" }));
}

} // namespace
} // namespace kestreleq::test
