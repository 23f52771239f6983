#pragma once

#include "tests/support/EditorRig.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestreleq::test
{

/** What a host hears of gestures: none may be begun within itself, or left open. */
struct Gestures final : juce::AudioProcessorListener
{
    void audioProcessorParameterChanged (juce::AudioProcessor*, int, float) override {}

    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}

    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index) override { add (index, 1); }

    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index) override { add (index, -1); }

    void add (int index, int more)
    {
        const auto now = open.at (static_cast<std::size_t> (index)) += more;
        EXPECT_TRUE (now == 0 || now == 1) << "a gesture within a gesture of " << index;
    }

    std::array<std::atomic<int>, numParameters> open {};
};

/** An editor with a mouse, keys and a host that each do what they like, and what must hold whatever they did. */
struct UsedRig : EditorRig
{
    UsedRig()
    {
        using Display = juce::Displays::Display;
        auto& displays = const_cast<juce::Array<Display>&> (juce::Desktop::getInstance().getDisplays().displays);

        if (Display display {}; displays.isEmpty()) // a drag asks where the screen ends
        {
            display.userArea = { -5000, -5000, 20000, 20000 };
            display.scale = 1.0;
            displays.add (display);
        }

        processor.addListener (&gestures);
    }

    ~UsedRig() { processor.removeListener (&gestures); }

    EditHistory& history() { return processor.getCore().getHistory(); }

    void moveBy (int x, int y) { window.sendMouse (at += { x, y }, buttons, time += 5); }

    void hold (juce::ModifierKeys newButtons)
    {
        buttons = newButtons;
        moveBy (0, 0);
    }

    void pressAt (juce::Point<int> place)
    {
        at = place;
        moveBy (0, 0);
        hold (juce::ModifierKeys::leftButtonModifier);
    }

    void type (int letter) { window.pressKey (juce::KeyPress (letter, {}, static_cast<juce::juce_wchar> (letter))); }

    void pressOnChart (int key, std::size_t lane = 0)
    {
        editor->getLane (lane).getChart().grabKeyboardFocus();
        press (key, 0);
    }

    juce::Point<int> placeOf (juce::Component& shown)
    {
        return window.getLocalPoint (&shown, shown.getLocalBounds().getCentre());
    }

    juce::Point<int> placeOfNode (std::size_t lane, std::size_t node)
    {
        auto& chart = editor->getLane (lane).getChart();
        return window.getLocalPoint (&chart, chart.getNodes().position (node)).roundToInt();
    }

    static void deliver() // without waiting for more
    {
        for (auto more = true; more;)
            more = juce::detail::dispatchNextMessageOnSystemQueue (true);
    }

    /** Lets go of everything. */
    void check()
    {
        hold ({});
        keysAreHeld = false;
        window.getPeer()->handleKeyUpOrDown (false);
        deliver();

        for (std::size_t i = 0; i < numParameters; ++i)
        {
            const auto value = get (parameterTable[i].id);
            EXPECT_TRUE (std::isfinite (value) && value >= 0.0f && value <= 1.0f) << parameterTable[i].id << value;
            EXPECT_EQ (gestures.open[i], 0) << parameterTable[i].id;
        }

        const auto canUndo = history().canUndo();
        EXPECT_EQ (history().undo(), canUndo) << "a step has been left open";
        const auto canRedo = history().canRedo();
        EXPECT_EQ (history().redo(), canRedo);
        EXPECT_FALSE (processor.isTransactionPending());

        if (editor == nullptr)
        {
            EXPECT_EQ (window.getNumChildComponents(), 0);
            EXPECT_EQ (juce::Desktop::getInstance().getNumComponents(), 1) << "a popup has outlived its editor";
            return;
        }

        tick();

        for (std::size_t i = 0; i < laneKnobs.size(); ++i)
            EXPECT_NEAR (editor->getLane (0).getKnob (i).getValue(), get (infoOf (laneKnobs[i].parameter).id), 1e-6f);
    }

    /** All the way back and forth, twice: the steps lead to the same settings each time. Returns the oldest. */
    std::array<float, numParameters> checkHistory()
    {
        const auto allTheWay = [this] (bool (EditHistory::*move)())
        {
            for (auto more = true; more;)
                more = (history().*move)();

            return values();
        };
        const auto oldest = allTheWay (&EditHistory::undo);
        const auto newest = allTheWay (&EditHistory::redo);
        EXPECT_EQ (allTheWay (&EditHistory::undo), oldest);
        EXPECT_EQ (allTheWay (&EditHistory::redo), newest);
        return oldest;
    }

    Gestures gestures;
    juce::Point<int> at;
    juce::ModifierKeys buttons;
    juce::int64 time = 1000;
    juce::MemoryBlock saved;
    std::array<float, numParameters> start {};
};

} // namespace kestreleq::test
