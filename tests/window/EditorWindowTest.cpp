#include "editor/KestrelEditor.h"

#include "tests/editor/ControlTable.h"
#include "tests/support/Components.h"
#include "tests/window/DesktopWindow.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <cmath>
#include <iostream>

namespace kestreleq::test
{
namespace
{

/** A processor with its editor open on the screen. */
struct ScreenRig : EditedRig
{
    explicit ScreenRig (juce::Point<int> at = { 40, 60 })
    {
        openEditor();
        opening = editor->getLocalBounds();
        window = std::make_unique<DesktopWindow> (*editor, at);
        EXPECT_TRUE (pumpMessagesUntil ([this] { return editor->isShowing(); }, 5000));
        window->activate();
        pumpMessages (200);

        // Once in a while the window manager maps a new window at the size that it had before its content.
        if (editor->getLocalBounds() != opening)
            editor->setSize (opening.getWidth(), opening.getHeight());

        EXPECT_TRUE (pumpMessagesUntil ([this] { return window->getPeer()->getBounds().getWidth() == 836; }, 2000));
    }

    ~ScreenRig() { window.reset(); }

    quillon::ui_pro::controls::KnobControl& knob (std::size_t index) { return editor->getLane (0).getKnob (index); }

    void dragKnob (std::size_t index, int upwards)
    {
        const auto centre = knob (index).getLocalBounds().getCentre();
        window->drag (knob (index), centre, centre.translated (0, -upwards));
    }

    juce::Rectangle<int> opening;
    std::unique_ptr<DesktopWindow> window;
};

struct Use
{
    long kilobytes = 0;
    int threads = 0;
};

Use measureUse()
{
    malloc_trim (0);
    Use use;

    for (const auto& line : juce::StringArray::fromLines (juce::File ("/proc/self/status").loadFileAsString()))
    {
        if (line.startsWith ("VmRSS:"))
            use.kilobytes = line.fromFirstOccurrenceOf (":", false, false).trim().getIntValue();
        else if (line.startsWith ("Threads:"))
            use.threads = line.fromFirstOccurrenceOf (":", false, false).trim().getIntValue();
    }

    return use;
}

TEST (EditorWindow, OpensAHundredTimesWithoutHoldingOnToAnything)
{
    constexpr int openings = 100;
    constexpr long tolerance = 2048; // KB: one editor's picture takes 1400

    ProcessorRig rig;
    const auto openAndClose = [&rig] (int times)
    {
        for (int i = 0; i < times; ++i)
        {
            KestrelEditor editor (rig.processor);
            DesktopWindow window (editor);
            pumpMessages (60);
            ASSERT_TRUE (editor.isShowing());
        }
        pumpMessages (200);
    };

    openAndClose (20); // fonts, caches
    const auto before = measureUse();
    const auto start = juce::Time::getMillisecondCounterHiRes();
    openAndClose (openings);
    const auto after = measureUse();
    std::cout << "  " << openings << " openings: " << before.kilobytes << " KB and " << before.threads
              << " threads before, " << after.kilobytes << " KB and " << after.threads << " after, "
              << std::lround ((juce::Time::getMillisecondCounterHiRes() - start) / openings) << " ms each\n";
    EXPECT_LE (after.kilobytes, before.kilobytes + tolerance);
    EXPECT_EQ (after.threads, before.threads);
}

TEST (EditorWindow, ItsCornerTakesItToBothLimitsAndKeepsTheAspect)
{
    ScreenRig rig;
    auto& editor = *rig.editor;
    const auto corner = [&] { return juce::Point<int> (editor.getWidth() - 5, editor.getHeight() - 5); };
    const auto sizeOnScreen = [&] { return rig.window->getPeer()->getBounds().withZeroOrigin(); };

    rig.window->drag (editor, corner(), { 1300, 700 });
    EXPECT_GT (editor.getWidth(), 1200);
    EXPECT_NEAR (editor.getWidth() / 836.0, editor.getHeight() / 429.0, 0.003);
    EXPECT_EQ (sizeOnScreen(), editor.getLocalBounds());

    rig.window->drag (editor, corner(), { 3530, 1900 });
    EXPECT_EQ (editor.getLocalBounds(), juce::Rectangle<int> (3344, 1716));
    EXPECT_EQ (sizeOnScreen(), editor.getLocalBounds());

    rig.window->drag (editor, corner(), { 200, 100 });
    EXPECT_EQ (editor.getLocalBounds(), juce::Rectangle<int> (836, 429));
    EXPECT_EQ (sizeOnScreen(), editor.getLocalBounds());
}

TEST (EditorWindow, LeavesTheHostItsKeys)
{
    ScreenRig rig;
    rig.window->click (*rig.editor, { 40, 300 });
    rig.window->press ("space");
    EXPECT_EQ (rig.window->keys, juce::StringArray ("spacebar"));

    auto& selector = rig.editor->getHeader().getPresetSelector();
    rig.window->click (selector);
    ASSERT_NE (selector.getBrowser(), nullptr);
    rig.window->type ("vocal p");
    EXPECT_EQ (selector.getBrowser()->getSearchField().getText(), "vocal p");
    rig.window->press ("Return");
    EXPECT_EQ (rig.processor.getCurrentProgram(), 1);
    EXPECT_EQ (rig.window->keys.size(), 1) << "typed text is not the host's";

    rig.window->press ("space");
    EXPECT_EQ (rig.window->keys.size(), 2) << "the keyboard is back";
}

/** The window with every control in it, in the same state before each row of the table. */
struct TableRig : ScreenRig
{
    TableRig()
    {
        set ("link", 0.0f);
        saved = save();
    }

    void startAgain()
    {
        for (int i = 0; i < 2 && editor->findOpenPopup() != nullptr; ++i)
            window->press ("Escape");
        restore (saved);
        pumpMessages (120);
    }

    void prepare (Prepare what)
    {
        startAgain();
        what (*this);
        set ("link", 0.0f); // programs have switched it on
        pumpMessages (120);
    }

    /** A press there would do something: the Tab key passes by what is dimmed. */
    void enableAll()
    {
        clipboardText = "something";
        prepare (loadAndUndo);
    }

    juce::MemoryBlock saved;
};

TEST (EditorWindow, EveryControlIsWorkedByTheMouse)
{
    TableRig rig;

    for (const auto& row : buttonRows)
    {
        rig.prepare (row.prepare);
        auto* const button = findTitled (*rig.editor, row.title);
        ASSERT_NE (button, nullptr) << row.title;
        const auto before = row.state (rig);
        rig.window->click (*button);
        EXPECT_TRUE (pumpMessagesUntil ([&] { return row.state (rig) != before; }, 2000)) << row.title;
    }

    rig.startAgain();
    const auto drag = [&rig] (juce::Component& control, juce::Point<int> from, Parameter parameter)
    {
        rig.set (infoOf (parameter).id, 0.4f);
        pumpMessages (120);
        rig.window->drag (control, from, from.translated (0, -40));
        EXPECT_GT (rig.get (infoOf (parameter).id), 0.5f) << infoOf (parameter).id;
    };

    for (const auto& [title, parameter] : knobRows())
    {
        auto& knob = *findTitled<quillon::ui_pro::controls::KnobControl> (*rig.editor, title);
        drag (knob, knob.getLocalBounds().getCentre(), parameter);
    }

    for (const auto& [lane, node, parameter] : nodeRows())
    {
        rig.startAgain();
        auto& chart = rig.editor->getLane (lane).getChart();
        drag (chart, chart.getNodes().position (node).roundToInt(), parameter);
    }
}

TEST (EditorWindow, EveryControlIsReachedByTheTabKeyAndWorkedByKeys)
{
    TableRig rig;
    rig.enableAll();
    rig.window->click (*rig.editor, { 5, 200 });
    std::size_t next = 0;

    for (const auto& title : tabStops())
    {
        rig.window->press ("Tab");
        const auto isThere = [&title]
        {
            auto* const focused = juce::Component::getCurrentlyFocusedComponent();
            return focused != nullptr && focused->getTitle() == title;
        };
        ASSERT_TRUE (pumpMessagesUntil (isThere, 2000)) << title;
        auto* const focused = juce::Component::getCurrentlyFocusedComponent();

        if (const auto& row = buttonRows[next % std::size (buttonRows)]; title == row.title)
        {
            rig.prepare (row.prepare);
            focused->grabKeyboardFocus(); // which a button loses when it is dimmed
            const auto before = row.state (rig);
            rig.window->press (next++ % 2 == 0 ? "Return" : "space");
            EXPECT_TRUE (pumpMessagesUntil ([&] { return row.state (rig) != before; }, 2000)) << title;
            rig.enableAll();
            focused->grabKeyboardFocus();
            continue;
        }

        for (const auto& [lane, node, parameter] : nodeRows())
        {
            if (focused != &rig.editor->getLane (lane).getChart())
                continue;

            const auto before = rig.get (infoOf (parameter).id);
            rig.window->press ("Up");
            EXPECT_NEAR (rig.get (infoOf (parameter).id), before + 0.01f, 1e-5f) << infoOf (parameter).id;
            rig.window->press ("Right");
        }
    }

    EXPECT_EQ (next, std::size (buttonRows));
    EXPECT_TRUE (rig.window->keys.isEmpty()) << "the host gets none of these";
}

TEST (EditorWindow, AChartsNodeTakesATypedValueAndAHeldKey)
{
    ScreenRig rig;
    auto& chart = rig.editor->getLane (0).getChart();
    auto& field = chart.getField();
    rig.window->click (*rig.editor, { 40, 300 });
    chart.grabKeyboardFocus();
    rig.window->press ("Right");
    rig.window->press ("Return");
    EXPECT_TRUE (pumpMessagesUntil ([&] { return field.hasKeyboardFocus (true); }, 2000));
    for (const auto* key : { "minus", "2", "x", "Return" })
        rig.window->press (key);
    EXPECT_TRUE (pumpMessagesUntil ([&] { return field.hasRefused(); }, 2000));
    for (const auto* key : { "minus", "2", "Return" })
        rig.window->press (key);
    EXPECT_TRUE (pumpMessagesUntil ([&] { return ! field.isOpen() && chart.hasKeyboardFocus (true); }, 2000));
    EXPECT_NEAR (rig.get ("40hz"), 0.3f, 1e-5f);

    const auto steps = rig.processor.getCore().getUndoManager().getUndoDescriptions().size();
    rig.window->hold ("Up");
    EXPECT_GT (rig.get ("40hz"), 0.32f) << "the key is repeated";
    EXPECT_EQ (rig.processor.getCore().getUndoManager().getUndoDescriptions().size(), steps + 1);

    rig.window->press ("ctrl+z");
    EXPECT_NEAR (rig.get ("40hz"), 0.3f, 1e-5f);
    EXPECT_TRUE (rig.window->keys.isEmpty()) << "the host gets none of these";
}

TEST (EditorWindow, ShowsATooltipUnderARestingMouseAndOverAnOpenList)
{
    ScreenRig rig;
    const auto shown = [&]
    {
        for (auto* child : rig.editor->getChildren())
            if (dynamic_cast<juce::TooltipWindow*> (child) != nullptr && child->isVisible())
                return rig.editor->getLocalBounds().contains (child->getBounds()) ? child : nullptr;
        return static_cast<juce::Component*> (nullptr);
    };
    EXPECT_EQ (shown(), nullptr);
    auto& menu = rig.editor->getHeader().getMenu();
    rig.window->moveMouse (menu, { 16, 16 });
    EXPECT_TRUE (pumpMessagesUntil ([&] { return shown() != nullptr; }, 10000));

    rig.window->click (menu);
    ASSERT_NE (menu.getPopup(), nullptr);
    rig.window->press ("End");
    rig.window->moveMouse (*rig.editor, menu.getPopup()->getListBounds().getCentre());
    EXPECT_TRUE (pumpMessagesUntil (
        [&]
        {
            return shown() != nullptr &&
                rig.editor->getIndexOfChildComponent (shown()) > rig.editor->getIndexOfChildComponent (menu.getPopup());
        },
        10000));
}

TEST (EditorWindow, EditorsOfTwoInstancesDoNotMeet)
{
    ScreenRig first;
    auto second = std::make_unique<ScreenRig> (juce::Point<int> (40, 700));
    second->dragKnob (1, 20);
    EXPECT_GT (second->get ("40hz"), 0.6f);
    EXPECT_EQ (first.get ("40hz"), 0.5f);
    EXPECT_EQ (first.knob (1).getValue(), 0.5f);

    second.reset();
    first.dragKnob (2, 20);
    EXPECT_GT (first.get ("160hz"), 0.6f);
    first.window->press ("ctrl+z");
    EXPECT_EQ (first.get ("160hz"), 0.5f);
}

} // namespace
} // namespace kestreleq::test
