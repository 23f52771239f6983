#include "tests/support/Components.h"
#include "tests/support/EditorRig.h"
#include "tests/support/Pictures.h"
#include "tests/support/Signals.h"

#include "engine/ParameterLinks.h"
#include "ui_pro/controls/meters/MeterPair.h"
#include "ui_pro/style/Theme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;
using controls::KnobControl;
using Values = std::array<float, numParameters>;

/** The one control of a parameter: a knob or a button. */
struct Control
{
    Parameter parameter;
    juce::Component* component;
};

float shownBy (const Control& control)
{
    if (auto* knob = dynamic_cast<KnobControl*> (control.component))
        return knob->getValue();

    const auto on = dynamic_cast<juce::Button*> (control.component)->getToggleState();
    const bool isPower = control.parameter == Parameter::laneABypass || control.parameter == Parameter::laneBBypass;
    return on != isPower ? 1.0f : 0.0f;
}

/** An editor of which every control shows another value, with the lanes and gains linked or all of them apart. */
struct WiringRig : EditorRig
{
    explicit WiringRig (bool linked = false)
    {
        auto seed = 0.11f;

        for (const auto& info : parameterTable)
            set (info.id, info.stepped ? 0.0f : std::fmod (seed += 0.137f, 0.7f));

        set ("airBand", 0.25f);
        set ("airBandR", 0.5f);

        for (const auto* id : { "link", "inGainLink", "outGainLink" })
            set (id, linked ? 1.0f : 0.0f);

        tick();
        addControls();
    }

    Values shown() const
    {
        Values result {};
        for (const auto& control : controls)
            result[indexOf (control.parameter)] = shownBy (control);
        return result;
    }

    /** By the mouse, where the window has the component: a click, or a drag by so many design pixels. */
    void work (juce::Component& component, juce::Point<float> from, juce::Point<float> distance = {})
    {
        const auto place = window.getLocalPoint (&component, from).roundToInt();

        if (distance.isOrigin())
        {
            window.click (place);
        }
        else
        {
            EXPECT_EQ (window.getComponentAt (place), &component);

            // Not through the window: without a display there is no screen for the pointer to leave.
            Mouse mouse (component);
            mouse.down (from);
            mouse.drag (from + distance);
            mouse.up (from + distance);
        }

        tick();
    }

    std::vector<Control> controls;

private:
    void addControls()
    {
        for (std::size_t lane = 0; lane < numLanes; ++lane)
        {
            auto& section = editor->getLane (lane);
            controls.push_back (
                { lane == 0 ? Parameter::laneABypass : Parameter::laneBBypass, &section.getPowerButton() });

            for (std::size_t i = 0; i < laneKnobs.size(); ++i)
                controls.push_back ({ onLane (laneKnobs[i].parameter, lane), &section.getKnob (i) });
        }

        for (const auto& [title, parameter] : std::initializer_list<std::pair<const char*, Parameter>> {
                 { "TRIM", Parameter::trim }, { "MASTER BYPASS", Parameter::bypass }, { "LINK L/R", Parameter::link },
                 { "M/S MODE", Parameter::msMode }, { "BREAK", Parameter::breakMode },
                 { "INPUT GAIN 1", Parameter::inGain1 }, { "INPUT GAIN 2", Parameter::inGain2 },
                 { "INPUT LINK", Parameter::inGainLink }, { "INPUT AUTO GAIN", Parameter::inAutoGain },
                 { "OUTPUT GAIN 1", Parameter::outGain1 }, { "OUTPUT GAIN 2", Parameter::outGain2 },
                 { "OUTPUT LINK", Parameter::outGainLink }, { "OUTPUT AUTO GAIN", Parameter::outAutoGain } })
            controls.push_back ({ parameter, findTitled (*editor, title) });
    }
};

/** What follows from a user's change: the partner of a linked pair, or all of them when the link goes on. */
Values expectedAfter (Values values, Parameter parameter, float newValue, bool linked)
{
    const auto wasOn = values[indexOf (parameter)];
    values[indexOf (parameter)] = newValue;

    if (const auto partner = partnerOf (parameter); linked && partner)
        values[indexOf (*partner)] = newValue;

    for (const auto& [first, second] : linkedPairs)
        if (wasOn < 0.5f && newValue > 0.5f &&
            (parameter == Parameter::link || (parameter == Parameter::inGainLink && first == Parameter::inGain1) ||
                (parameter == Parameter::outGainLink && first == Parameter::outGain1)))
            values[indexOf (second)] = values[indexOf (first)];

    return values;
}

TEST (Wiring, EachControlMovesItsOwnParameterAndShowsItAndNoOther)
{
    for (const auto linked : { false, true })
    {
        std::size_t count = 0;

        for (std::size_t i = 0; i < numParameters; ++i)
        {
            WiringRig rig (linked);
            ASSERT_EQ (rig.controls.size(), numParameters);
            const auto& [parameter, component] = rig.controls[i];
            ASSERT_NE (component, nullptr) << i;

            if (! component->isShowing())
                continue;

            ++count;
            const auto& info = infoOf (parameter);
            const auto before = rig.values();
            auto* const knob = dynamic_cast<KnobControl*> (component);

            if (knob != nullptr)
                rig.work (*knob, knob->getKnobBounds().getCentre().toFloat(), { 0.0f, -38.0f });
            else
                rig.work (*component, component->getLocalBounds().getCentre().toFloat());

            const auto moved = rig.get (info.id);
            const auto dragged = before[indexOf (parameter)] + 38.0f / 140.0f;
            EXPECT_NEAR (moved,
                knob == nullptr                      ? 1.0f - before[indexOf (parameter)]
                    : info.text == TextKind::airStep ? std::round (4.0f * dragged) / 4.0f
                                                     : dragged,
                1e-4f)
                << info.id;
            EXPECT_EQ (rig.values(), expectedAfter (before, parameter, moved, linked)) << info.id;
            EXPECT_EQ (rig.steps(), juce::StringArray (info.name)) << info.id;
            EXPECT_EQ (rig.editor->getControlParameterIndex (*component), static_cast<int> (indexOf (parameter)));

            // The other direction: whatever the host sets alone is shown, there alone, and is no step of the user's.
            auto shown = rig.shown();
            EXPECT_EQ (shown, rig.values()) << info.id;

            if (parameter == Parameter::link)
                continue;

            rig.set (info.id, info.stepped ? 1.0f - moved : 1.0f);
            rig.tick();
            rig.save(); // looks at every value
            EXPECT_EQ (rig.shown(), rig.values()) << info.id;
            EXPECT_NE (rig.shown(), shown) << info.id;
            EXPECT_EQ (rig.steps().size(), 1) << info.id << ": automated, after the user has moved it";

            if (knob != nullptr)
            {
                EXPECT_EQ (knob->getValueText(), rig.parameter (info.id).getCurrentValueAsText()) << info.id;
                knob->triggerReset();
                EXPECT_EQ (rig.get (info.id), info.defaultValue) << info.id;
            }
        }

        EXPECT_EQ (count, linked ? 21u : numParameters);
    }
}

TEST (Wiring, EachNodeMovesItsOwnParameterByMouseKeysAndText)
{
    using Key = juce::KeyPress;

    for (std::size_t lane = 0; lane < numLanes; ++lane)
    {
        for (std::size_t node = 0; node < ChartNodes::count; ++node)
        {
            WiringRig rig;
            auto& chart = rig.editor->getLane (lane).getChart();
            const auto parameter = onLane (laneKnobs[node].parameter, lane);
            const auto* id = infoOf (parameter).id;
            auto expectMove = [&, before = rig.values()] (float by) mutable
            {
                before[indexOf (parameter)] = rig.get (id);
                EXPECT_NEAR (before[indexOf (parameter)], by, 2e-3f) << id;
                EXPECT_EQ (rig.values(), before) << id;
                Mouse (chart).move (chart.getNodes().position (node));
                EXPECT_TRUE (chart.getReadoutText().contains (rig.parameter (id).getCurrentValueAsText()))
                    << chart.getReadoutText();
            };
            auto value = rig.get (id);
            const auto height = chart.getAxes().plot.getHeight();
            rig.work (chart, chart.getNodes().position (node),
                { node == ChartNodes::airNode ? -20.0f : 120.0f, -0.1f * height });
            expectMove (value += 0.1f);
            const auto at = chart.getNodes().position (node);
            EXPECT_NEAR (
                at.y, chart.getAxes().yFor (levelAt (chart.getAxes(), chart.getResponse().getCurve(), at.x)), 9.0f);

            chart.grabKeyboardFocus();
            for (std::size_t i = 0; i < node; ++i)
                rig.press (Key::rightKey, 0);
            rig.press (Key::downKey, 0);
            rig.press (Key::leftKey, 0);
            rig.press (Key::rightKey, 0);
            expectMove (value -= 0.01f);
            EXPECT_FALSE (rig.press (Key::spaceKey, 0)) << "the host's";
            EXPECT_EQ (chart.getAccessibilityHandler()->getValueInterface()->getCurrentValueAsString(),
                chart.getReadoutText());

            rig.press (Key::returnKey, 0);
            chart.getField().setText (node == ChartNodes::airNode ? "0.3" : "1.5");
            rig.press (Key::returnKey, 0);
            pumpMessages (1);
            pumpMessagesUntil ([&] { return ! chart.getField().isOpen(); }, 500);
            expectMove (node == ChartNodes::airNode ? 0.3f : 0.65f);

            rig.press (Key::returnKey, 0);
            EXPECT_TRUE (chart.getField().isOpen());
            rig.window.click ({ 3, 200 });
            EXPECT_TRUE (pumpMessagesUntil ([&] { return ! chart.getField().isOpen(); }, 1000));
        }
    }
}

float loudest (std::span<const float> levels)
{
    return levels.empty() ? -200.0f : *std::max_element (levels.begin(), levels.end());
}

/** Hz of the highest level. */
float peakOf (SpectrumDisplay& display, std::size_t trace)
{
    const auto levels = display.getLevels (trace);
    return levels.empty() ? 0.0f
                          : display.getFrequencies()[static_cast<std::size_t> (
                                std::max_element (levels.begin(), levels.end()) - levels.begin())];
}

TEST (Wiring, EachMeterAndSpectrumShowsItsOwnSignalInItsOwnColour)
{
    struct Mode
    {
        float link, midSide;
        std::array<int, numLanes> colours; // of the output's bars
    };

    for (const auto& mode : { Mode { 0.0f, 0.0f, { 3, 6 } }, { 0.0f, 1.0f, { 9, 12 } }, { 1.0f, 1.0f, { 16, 16 } } })
    {
        EditorRig rig;
        const auto linked = mode.link > 0.5f;
        rig.set ("link", mode.link);
        rig.set ("msMode", mode.midSide);

        for (const auto* id : { "inGainLink", "outGainLink", "inAutoGain", "outAutoGain" })
            rig.set (id, 0.0f);

        // In mid/side these are the gains of left and right.
        const std::array<float, numLanes> gains { 3.0f, mode.midSide > 0.5f ? 3.0f : -6.0f }; // dB
        rig.set ("outGain2", 0.5f + gains[1] / 18.0f);
        rig.set ("outGain1", 0.5f + gains[0] / 18.0f);

        for (int i = 0; i < 24; ++i)
        {
            Stereo signal { sine (500.0, 48000.0, 2400, 0.4), sine (3000.0, 48000.0, 2400, 0.1) };

            if (mode.midSide > 0.5f && ! linked) // what was meant for the lanes
                for (std::size_t n = 0; n < signal[0].size(); ++n)
                {
                    const auto mid = signal[0][n], side = signal[1][n];
                    signal[0][n] = mid + side;
                    signal[1][n] = mid - side;
                }

            rig.process (signal, 480);
            rig.tick();
        }

        const auto mixed = 20.0f * std::log10 (0.25f / std::sqrt (2.0f));
        const std::array<float, numLanes> input { linked ? mixed : -10.97f, linked ? mixed : -23.01f };

        for (std::size_t lane = 0; lane < numLanes; ++lane)
        {
            const auto output = input[lane] + gains[lane];
            const auto row = static_cast<int> (lane);

            for (const auto& [title, level] :
                { std::pair { "Input levels", input[lane] }, { "Output levels", output } })
            {
                auto* const pair = findTitled<controls::MeterPair> (*rig.editor, title);
                ASSERT_NE (pair, nullptr);
                EXPECT_NEAR (pair->getMeter (row).getLevelDb(), level, 0.5f) << title << row;
                EXPECT_NEAR (pair->getReadout (row).getFloatValue(), level, 0.55f) << title << row;

                const auto bar = pair->getMeter (row).getBounds();
                const auto colour = paintPicture (*pair).getPixelAt (bar.getX() + 2, bar.getCentreY());
                EXPECT_EQ (colour, level == output ? style::Theme::accent (mode.colours[lane]) : ChannelMode::neutral())
                    << title << row;
            }

            if (linked && lane == 1)
                continue;

            auto& strip = rig.editor->getLane (lane).getMeterStrip();
            EXPECT_NEAR (strip.getLevelDbL(), input[lane], 0.5f);
            EXPECT_NEAR (strip.getLevelDbR(), output, 0.5f);
            const auto bars = controls::MeterStripLayout::of (strip.getLocalBounds(), false).bars;
            const auto colourOf = [bars, picture = paintPicture (strip)] (std::size_t bar)
            { return picture.getPixelAt (bars[bar].getCentreX(), bars[bar].getBottom() - 2); };
            EXPECT_EQ (colourOf (0), ChannelMode::neutral());
            EXPECT_EQ (colourOf (1), style::Theme::accent (mode.colours[lane]));

            auto& spectrum = rig.editor->getLane (lane).getChart().getSpectrum();
            EXPECT_NEAR (peakOf (spectrum, 0), lane == 0 ? 500.0f : 3000.0f, lane == 0 ? 12.0f : 70.0f);
            EXPECT_NEAR (loudest (spectrum.getLevels (1)) - loudest (spectrum.getLevels (0)), gains[lane], 0.6f);
        }
    }
}

} // namespace
} // namespace kestreleq::test
