#include "tests/editor/UsedRig.h"

#include "ui_pro/controls/presets/PresetBrowserPopup.h"
#include "ui_pro/controls/support/SupportDiagnosticsPanel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;
using Key = juce::KeyPress;
using Mods = juce::ModifierKeys;

void drag (UsedRig& rig, juce::Point<int> from)
{
    rig.pressAt (from);
    rig.moveBy (0, -15);
}

auto& presets (UsedRig& rig)
{
    return rig.editor->getHeader().getPresetSelector();
}

/** What a user has begun, and the key that goes on with it. */
const std::tuple<const char*, void (*) (UsedRig&), const int*> actions[] {
    { "a knob's drag", [] (UsedRig& rig) { drag (rig, rig.placeOf (rig.editor->getLane (0).getKnob (2))); },
        &Key::upKey },
    { "a node's drag", [] (UsedRig& rig) { drag (rig, rig.placeOfNode (0, 2)); }, &Key::upKey },
    { "a held key", [] (UsedRig& rig) { rig.pressOnChart (Key::upKey); }, &Key::upKey },
    { "a typed value",
        [] (UsedRig& rig)
        {
            rig.pressOnChart (Key::returnKey);
            rig.type ('2');
        },
        &Key::returnKey },
    { "the menu", [] (UsedRig& rig) { rig.editor->getHeader().getMenu().openPopup(); }, &Key::escapeKey },
    { "the modes", [] (UsedRig& rig) { rig.editor->getFooter().getOversampling().openPopup(); }, &Key::escapeKey },
    { "the browser", [] (UsedRig& rig) { presets (rig).openBrowser(); }, &Key::escapeKey },
    { "the browser's list",
        [] (UsedRig& rig)
        {
            presets (rig).openBrowser();
            presets (rig).getBrowser()->getFilter (controls::PresetSelector::BrowserPopup::author).triggerClick();
        },
        &Key::escapeKey },
    { "the sheet", [] (UsedRig& rig) { rig.editor->openSupport(); }, &Key::escapeKey },
};

/** What comes between, and whether undoing all leads back to the start. */
const std::tuple<const char*, void (*) (UsedRig&), bool> events[] {
    { "a program", [] (UsedRig& rig) { rig.editor->getHeader().selectProgram (5); }, true },
    { "a host's program", [] (UsedRig& rig) { std::thread ([&] { rig.processor.setCurrentProgram (5); }).join(); },
        false },
    { "a host that parts the lanes", [] (UsedRig& rig) { rig.set ("link", 0.0f); }, false },
    { "a hand on a knob", [] (UsedRig& rig) { drag (rig, rig.placeOf (rig.editor->getLane (0).getKnob (0))); }, true },
    { "a paste", [] (UsedRig& rig) { rig.clipboard().paste(); }, true },
    { "a restored state",
        [] (UsedRig& rig)
        {
            std::thread ([&] { rig.restore (rig.saved); }).join();
            rig.start = rig.values();
        },
        true },
    { "the window's end", [] (UsedRig& rig) { rig.editor.reset(); }, true },
};

/** The same steps for the same seed. */
struct RandomUse : UsedRig
{
    explicit RandomUse (int seed)
        : random (static_cast<unsigned> (seed))
    {
    }

    int below (int end) { return static_cast<int> (random() % static_cast<unsigned> (end)); }

    template <typename List>
    auto& any (List&& list)
    {
        return list[static_cast<std::size_t> (below (static_cast<int> (std::size (list))))];
    }

    void step()
    {
        now += below (100);
        time += below (600); // sometimes a double click

        if (editor == nullptr)
            open();

        if (const auto kind = below (40); kind == 0)
            std::get<1> (any (events)) (*this);
        else
            (kind < 16 ? useMouse() : kind < 28 ? useKeys() : kind < 36 ? useEditor() : beTheHost());

        deliver();

        // Nothing may leave the test.
        using Panel = controls::SupportDiagnosticsPanel;
        if (auto* panel = editor ? dynamic_cast<Panel*> (editor->getOverlay().getContent()) : nullptr)
        {
            panel->services.copyText = [] (const juce::String&) { return true; };
            panel->services.openAddress = [] (const juce::String&) {};
            panel->getButton (Panel::Action::openConfigFolder).setEnabled (false); // it makes the folder
            panel->services.chooseFile = [] (const juce::File&, const auto& done) { done ({}); };
        }
    }

    void useMouse()
    {
        const auto kind = below (8);
        juce::MouseWheelDetails wheel {};
        wheel.deltaY = static_cast<float> (below (3) - 1) * 0.3f;

        if (kind < 3)
            pressAt (anyPlace());
        else if (kind < 5)
            hold (below (2) == 0 ? Mods() : Mods (1 << below (5))); // one of the buttons, or a key
        else if (kind == 5)
            window.getPeer()->handleMouseWheel (
                juce::MouseInputSource::InputSourceType::mouse, at.toFloat(), ++time, wheel);
        else
            for (int i = below (5); i >= 0; --i)
                moveBy (below (81) - 40, below (81) - 40);

        if (kind == 0)
            hold ({});

        if (kind == 1) // twice at once
        {
            hold ({});
            pressAt (at);
        }
    }

    juce::Point<int> anyPlace()
    {
        if (below (3) == 0)
            return placeOfNode (static_cast<std::size_t> (below (2)), static_cast<std::size_t> (below (6)));

        std::vector<juce::Component*> shown { &window };
        for (std::size_t i = 0; i < shown.size(); ++i)
            for (auto* child : shown[i]->getChildren())
                if (child->isVisible())
                    shown.push_back (child);

        return placeOf (*any (shown)).translated (below (5), below (5));
    }

    void useKeys()
    {
        static const std::vector<int> keys { Key::tabKey, Key::returnKey, Key::spaceKey, Key::escapeKey, Key::leftKey,
            Key::rightKey, Key::upKey, Key::downKey, Key::pageUpKey, Key::pageDownKey, Key::homeKey, Key::endKey,
            Key::deleteKey, Key::backspaceKey, 'z', 'y', 'a', 'c', 'v', '2', '-', '.', 'k' };
        const auto key = any (keys);
        const auto inText =
            dynamic_cast<juce::TextEditor*> (juce::Component::getCurrentlyFocusedComponent()) != nullptr;
        keysAreHeld = below (3) == 0;

        if (below (3) > 0)
            key >= ' ' && key <= 'z' ? type (key) : void (press (key, 0));
        else if (! inText || (key != 'c' && key != 'v' && key != Key::deleteKey)) // there is no clipboard
            press (key, any (std::vector { Mods::ctrlModifier, Mods::shiftModifier }));

        window.getPeer()->handleKeyUpOrDown (false);
    }

    void useEditor()
    {
        const auto slot = static_cast<controls::ABSlot> (below (2));
        const auto begin = std::get<1> (any (actions));
        const std::vector<std::function<void()>> uses {
            [&] { begin (*this); },
            [&] { begin (*this); },
            [&] { editor->getHeader().getAbControl().select (slot); },
            [&] { editor->setSize (400 + below (1200), 200 + below (600)); },
            [&] { window.createComponentSnapshot (window.getLocalBounds(), true, 0.25f); },
            [&] { clipboardText = "no settings"; },
            [&] { clipboard().copy(); },
            [&] { tick(); },
        };
        any (uses)();

        if (editor != nullptr)
            window.setSize (editor->getWidth(), editor->getHeight());
    }

    void beTheHost()
    {
        const auto number = below (6);
        const auto value = static_cast<float> (below (1001)) / 1000.0f;
        const auto* const id = any (parameterTable).id;
        const std::vector<std::function<void()>> changes {
            [&] { set (id, value); },
            [&] { set (id, 1.0f); },
            [&] { processor.setCurrentProgram (number); },
            [&] { saved = save(); },
            [&] { restore (saved); },
            [&] { processor.prepareToPlay (number < 3 ? 44100.0 : 96000.0, 512); },
            [&]
            {
                Stereo signal { std::vector<float> (600, value), std::vector<float> (600, -value) };
                process (signal);
                EXPECT_TRUE (std::isfinite (signal[0].back()) && std::isfinite (signal[1].back()));
            },
        };
        const auto& change = any (changes);
        below (2) == 0 ? change() : std::thread (change).join();
    }

    std::mt19937 random;
};

int fromEnvironment (const char* name, int usual)
{
    return juce::SystemStats::getEnvironmentVariable (name, juce::String (usual)).getIntValue();
}

TEST (HardUse, ThousandsOfRandomStepsLeaveNothingOpen)
{
    const auto seed = fromEnvironment ("KESTREL_SEED", 1);
    const auto numSteps = fromEnvironment ("KESTREL_STEPS", KESTREL_RANDOM_STEPS);
    RandomUse use (seed);

    for (int i = 1; i <= numSteps && ! HasFailure(); ++i)
    {
        SCOPED_TRACE ("seed " + std::to_string (seed) + ", step " + std::to_string (i));
        use.step();

        if (i % 25 == 0)
            use.check();
    }

    use.editor.reset();
    use.check();
    use.checkHistory();
}

TEST (HardUse, WhatComesInTheMiddleOfAnythingDoesNoHarm)
{
    for (const auto& [action, begin, key] : actions)
    {
        for (const auto& [event, happen, leadsBack] : events)
        {
            SCOPED_TRACE (juce::String (event) + " in the middle of " + action);
            UsedRig rig;
            rig.setRandomly (3);
            rig.saved = rig.save();
            rig.clipboard().copy();
            rig.setRandomly (4);
            rig.tick();
            rig.start = rig.values();

            rig.keysAreHeld = true;
            begin (rig);
            UsedRig::deliver();
            happen (rig);
            UsedRig::deliver();
            rig.moveBy (0, -15);

            for (int i = 0; i < 2 && rig.editor != nullptr; ++i) // a list lies over its browser
            {
                rig.press (i == 0 || *key == Key::escapeKey ? *key : Key::upKey, 0);
                rig.tick();
                rig.now += 500.0;
                rig.editor->getOverlay().advance();
            }

            EXPECT_TRUE (rig.editor == nullptr || rig.editor->findOpenPopup() == nullptr);

            rig.check();
            EXPECT_TRUE (rig.checkHistory() == rig.start || ! leadsBack);
        }
    }
}

} // namespace
} // namespace kestreleq::test
