#include "editor/KestrelEditor.h"
#include "editor/SupportRecord.h"

#include "tests/support/Components.h"
#include "tests/support/EditorRig.h"
#include "tests/support/Mouse.h"
#include "tests/support/Signals.h"

#include "ui_pro/controls/meters/MeterPair.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestreleq::test
{
namespace
{

using quillon::ui_pro::controls::MeterPair;

/** A host with menus for parameters, which notes what it was asked for. */
struct MenuHost final : juce::AudioProcessorEditorHostContext
{
    struct Menu final : juce::HostProvidedContextMenu
    {
        juce::PopupMenu getEquivalentPopupMenu() const override { return {}; }

        void showNativeMenu (juce::Point<int> position) const override { *shownAt = position; }

        juce::Point<int>* shownAt = nullptr;
    };

    std::unique_ptr<juce::HostProvidedContextMenu> getContextMenuForParameter (
        const juce::AudioProcessorParameter* parameter) const override
    {
        index = parameter->getParameterIndex();
        auto menu = std::make_unique<Menu>();
        menu->shownAt = &shownAt;
        return menu;
    }

    mutable int index = -1;
    mutable juce::Point<int> shownAt;
};

TEST (KestrelEditor, ARightClickOnANodeOpensTheHostsMenuAndMovesNothing)
{
    EditorRig rig;
    MenuHost host;
    rig.editor->setHostContext (&host);
    rig.tick();
    auto& chart = rig.editor->getLane (0).getChart();
    const auto node = chart.getNodes().position (2);
    const auto before = rig.values();

    Mouse mouse (chart);
    mouse.move (node);
    EXPECT_EQ (rig.editor->getControlParameterIndex (chart), static_cast<int> (indexOf (Parameter::hz160)));
    mouse.down (node, juce::ModifierKeys::rightButtonModifier);
    mouse.drag (node.translated (0.0f, 40.0f));
    mouse.up (node);
    EXPECT_EQ (host.index, static_cast<int> (indexOf (Parameter::hz160)));
    EXPECT_EQ (host.shownAt, rig.editor->getLocalPoint (&chart, node.roundToInt()));
    EXPECT_EQ (rig.values(), before);

    mouse.move ({ 1.0f, 1.0f });
    EXPECT_EQ (rig.editor->getControlParameterIndex (chart), -1);
    rig.editor->setHostContext (nullptr);
    mouse.down (node, juce::ModifierKeys::rightButtonModifier); // no menu
    mouse.up (node);

    const auto at = [&] (int x, int y) // in design pixels; the window opens at half of them
    { return rig.editor->getControlParameterIndex (*rig.editor->getComponentAt (x / 2, y / 2)); };
    EXPECT_EQ (at (328 + 59, 78 + 537 + 24 + 60), static_cast<int> (indexOf (Parameter::sub)));
    EXPECT_EQ (at (60, 34), -1) << "the logo";
}

TEST (KestrelEditor, MetersAndSpectraEndWithTheAudio)
{
    EditorRig rig;
    auto& lane = rig.editor->getLane (0);
    const auto play = [&]
    {
        for (int i = 0; i < 10; ++i)
        {
            Stereo signal { sine (1000.0, 48000.0, 2400, 0.5), sine (1000.0, 48000.0, 2400, 0.5) };
            rig.process (signal, 512);
            rig.tick();
        }
    };
    const auto meter = [&] { return lane.getMeterStrip().getLevelDbR(); };
    const auto curve = [&]
    {
        const auto levels = lane.getChart().getSpectrum().getLevels (1);
        return *std::max_element (levels.begin(), levels.end());
    };

    play();
    const auto playing = meter();
    EXPECT_GT (playing, -15.0f);
    EXPECT_GT (curve(), SpectrumDisplay::floorLevel + 20.0f);

    for (int i = 0; i < 3; ++i)
        rig.tick();
    EXPECT_EQ (meter(), playing) << "a short pause between two blocks";

    for (int i = 0; i < 100; ++i)
        rig.tick();
    EXPECT_EQ (meter(), -48.0f);
    EXPECT_EQ (curve(), SpectrumDisplay::floorLevel);

    // Of what was before another state, nothing is seen at all; what plays on is.
    play();
    EXPECT_EQ (meter(), playing);
    rig.processor.setCurrentProgram (1);
    rig.tick();
    EXPECT_EQ (meter(), -48.0f);
    EXPECT_EQ (findTitled<MeterPair> (*rig.editor, "Output levels")->getMeter (1).getLevelDb(), -48.0f);
    EXPECT_EQ (curve(), SpectrumDisplay::floorLevel);
    rig.processor.setCurrentProgram (0);
    play();
    EXPECT_EQ (meter(), playing);
}

TEST (KestrelEditor, APopupKeepsTheKeyboardWhenTheWindowIsToldLateThatItHasIt)
{
    EditorRig rig;
    auto& header = rig.editor->getHeader();
    const auto late = [&rig] (const std::function<void()>& open)
    {
        rig.editor->grabKeyboardFocus();
        rig.window.getPeer()->handleFocusLoss();
        open();
        rig.window.getPeer()->handleFocusGain();
        pumpMessages (1);
    };

    late ([&] { header.getMenu().openPopup(); });
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
    EXPECT_EQ (header.getMenu().getPopup(), nullptr);

    late ([&] { header.getPresetSelector().openBrowser(); });
    EXPECT_TRUE (rig.window.pressKey ({ juce::KeyPress::spaceKey, {}, U' ' })) << "typed into the search";
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));

    auto& oversampling = rig.editor->getFooter().getOversampling();
    late ([&] { oversampling.openPopup(); });
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
    EXPECT_EQ (oversampling.getPopup(), nullptr);

    late ([&] { rig.editor->openSupport(); });
    EXPECT_TRUE (rig.press (juce::KeyPress::escapeKey, 0));
}

TEST (KestrelEditor, ItsEndWithinAClickLeavesNoStepOpen)
{
    EditorRig rig;
    rig.editor->getHeader().selectProgram (3); // something to undo
    auto& scaffold = rig.editor->getScaffold();
    scaffold.onLinkChanged = [&rig] { rig.editor.reset(); };
    Mouse (scaffold.getGlobalPanel().getLink()).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.editor, nullptr);
    EXPECT_TRUE (rig.processor.getCore().getHistory().undo());
}

TEST (KestrelEditor, AnUnknownHostIsToldByItsFile)
{
    const ResourceManifest manifest (juce::String {});
    juce::AudioProcessor::setTypeOfNextNewPlugin (juce::AudioProcessor::wrapperType_VST3);
    const ProcessorRig hosted;
    juce::AudioProcessor::setTypeOfNextNewPlugin (juce::AudioProcessor::wrapperType_Undefined);
    const ProcessorRig alone;

    const auto program = juce::File::getSpecialLocation (juce::File::hostApplicationPath).getFileName();
    EXPECT_EQ (makeSupportRecord (hosted.processor, manifest).host, "Unknown (" + program + ")");
    EXPECT_TRUE (makeSupportRecord (alone.processor, manifest).host.isEmpty());
}

} // namespace
} // namespace kestreleq::test
