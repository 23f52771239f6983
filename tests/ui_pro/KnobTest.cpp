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
    mouse.drag ({ 10.0f, 72.0f });
    mouse.drag ({ 10.0f, -100.0f });
    mouse.drag ({ 10.0f, -140.0f });
    mouse.drag ({ 10.0f, 1000.0f });
    mouse.up ({ 10.0f, 1000.0f });
    mouse.drag ({ 10.0f, 0.0f });
    EXPECT_EQ (recorded.take(), (Events { "start", "75", "70", "100", "0", "end" }));

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
    EXPECT_EQ (recorded.take(), (Events { "start", "end", "start", "end" }));
    recorded.mouse.up ({ 0.0f, 0.0f });
    EXPECT_EQ (recorded.take(), Events {});

    recorded.knob.setEnabled (true);
    recorded.knob.setVisible (true);
    recorded.mouse.down ({ 0.0f, 0.0f });
    recorded.knob.setVisible (false);
    EXPECT_EQ (recorded.take(), (Events { "start", "end" }));
}

TEST (Knob, RepaintsItsNumberWhenThatHasChanged)
{
    KnobControl knob;
    RepaintWatch repaints (knob);
    knob.setValue (0.25f);
    EXPECT_EQ (repaints.takeArea(), knob.getKnobBounds().getUnion (knob.getValueBounds()));
    knob.setValueText ("-12 dB");
    repaints.takeArea();
    knob.setValue (0.75f);
    EXPECT_EQ (repaints.takeArea(), knob.getKnobBounds());
}

TEST (Knob, ScreenReadersAdjustItInOneGesture)
{
    Recorded recorded;
    const auto handler = recorded.knob.createAccessibilityHandler();
    auto* const value = handler->getValueInterface();
    value->setValue (0.25);
    EXPECT_EQ (recorded.take(), (Events { "start", "25", "end" }));
    value->setValueAsString ("40 %");
    EXPECT_EQ (recorded.take(), (Events { "start", "40", "end" }));
    recorded.mouse.down ({ 0.0f, 0.0f });
    value->setValue (0.25);
    EXPECT_EQ (recorded.take(), Events { "start" }) << "not into a drag";
}

} // namespace
} // namespace kestreleq::test
