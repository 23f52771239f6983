#include "tests/support/Mouse.h"
#include "tests/support/Pictures.h"

#include "ui_pro/controls/buttons/PowerButton.h"
#include "ui_pro/controls/panels/EffectEditorScaffold.h"
#include "ui_pro/layout/HeaderBar.h"

#include <gtest/gtest.h>

#include <optional>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;
using controls::EffectEditorScaffold;
using controls::ParameterIds;
using Box = juce::Rectangle<int>;

/** A processor with nothing but parameters, which writes down gestures and values. */
class SmallProcessor final : public juce::AudioProcessor, private juce::AudioProcessorListener
{
public:
    SmallProcessor()
        : tree (*this, &undo, "State", makeLayout())
    {
        addListener (this);
    }

    ~SmallProcessor() override { removeListener (this); }

    const juce::String getName() const override { return "Small"; }

    void prepareToPlay (double, int) override {}

    void releaseResources() override {}

    void processBlock (juce::AudioBuffer<float>&, juce::MidiBuffer&) override {}

    double getTailLengthSeconds() const override { return 0.0; }

    bool acceptsMidi() const override { return false; }

    bool producesMidi() const override { return false; }

    juce::AudioProcessorEditor* createEditor() override { return nullptr; }

    bool hasEditor() const override { return false; }

    int getNumPrograms() override { return 1; }

    int getCurrentProgram() override { return 0; }

    void setCurrentProgram (int) override {}

    const juce::String getProgramName (int) override { return {}; }

    void changeProgramName (int, const juce::String&) override {}

    void getStateInformation (juce::MemoryBlock&) override {}

    void setStateInformation (const void*, int) override {}

    float get (const char* id) { return tree.getParameter (id)->getValue(); }

    void set (const char* id, float value) { tree.getParameter (id)->setValueNotifyingHost (value); }

    std::string take() { return std::exchange (events, {}).joinIntoString (" ").toStdString(); }

    juce::UndoManager undo;
    juce::StringArray events;
    juce::AudioProcessorValueTreeState tree;

private:
    static juce::AudioProcessorValueTreeState::ParameterLayout makeLayout()
    {
        juce::AudioProcessorValueTreeState::ParameterLayout layout;
        const juce::NormalisableRange<float> decibels (-12.0f, 12.0f);

        for (const auto* id : { "gain", "gain2" })
            layout.add (std::make_unique<juce::AudioParameterFloat> (juce::ParameterID (id, 1), id, decibels, 3.0f,
                juce::AudioParameterFloatAttributes().withStringFromValueFunction (
                    [] (float value, int) { return juce::String (value, 1) + " dB"; })));

        for (const auto* id : { "bypass", "link", "ms" })
            layout.add (std::make_unique<juce::AudioParameterBool> (juce::ParameterID (id, 1), id, false));

        layout.add (std::make_unique<juce::AudioParameterChoice> (
            juce::ParameterID ("mode", 1), "mode", juce::StringArray { "Left", "Right", "Side", "Mid", "Stereo" }, 4));
        return layout;
    }

    void audioProcessorParameterChanged (AudioProcessor*, int, float value) override
    {
        events.add (juce::String (value, 2));
    }

    void audioProcessorChanged (AudioProcessor*, const AudioProcessorListener::ChangeDetails&) override {}

    void audioProcessorParameterChangeGestureBegin (AudioProcessor*, int) override { events.add ("begin"); }

    void audioProcessorParameterChangeGestureEnd (AudioProcessor*, int) override { events.add ("end"); }
};

struct ScaffoldRig
{
    explicit ScaffoldRig (ParameterIds ids = someIds())
    {
        scaffold.emplace (processor.tree, ids, style::Theme::accent (5), style::Theme::accent (16), &processor.undo);
        scaffold->setSize (672, 704);
        scaffold->onGestureStart = [this] { processor.events.add ("<"); };
        scaffold->onGestureEnd = [this] { processor.events.add (">"); };
        scaffold->onLinkChanged = [this] { processor.events.add ("link"); };
        scaffold->onMsModeChanged = [this] { processor.events.add ("ms"); };
    }

    static ParameterIds someIds()
    {
        ParameterIds ids;
        ids.bypass = "bypass";
        ids.link = "link";
        ids.msMode = "ms";
        ids.inGain1 = "gain";
        ids.outGain1 = "no such parameter";
        ids.choiceId = "mode";
        return ids;
    }

    SmallProcessor processor;
    std::optional<EffectEditorScaffold> scaffold;
};

TEST (Scaffold, LaysOutItsPanels)
{
    ScaffoldRig rig;
    auto& scaffold = *rig.scaffold;
    EXPECT_EQ (scaffold.getLaneStack().getBounds(), Box (0, 0, 404, 704));
    EXPECT_EQ (scaffold.getGlobalPanel().getBounds(), Box (412, 0, 260, 348));
    EXPECT_EQ (scaffold.getInputOutputPanel().getBounds(), Box (412, 356, 260, 348));

    scaffold.setSize (267, 355);
    EXPECT_EQ (scaffold.getLaneStack().getWidth(), 0);
    EXPECT_EQ (scaffold.getGlobalPanel().getBounds(), Box (7, 0, 260, 348));
    EXPECT_EQ (scaffold.getInputOutputPanel().getHeight(), 0);
    paintPicture (scaffold); // whatever is left of it
}

TEST (Scaffold, AKnobShowsItsParameterAndIsOneGesturePerDrag)
{
    ScaffoldRig rig;
    auto& knob = rig.scaffold->getInputOutputPanel().getInput().getGain1();
    EXPECT_EQ (knob.getValue(), 0.625f);
    EXPECT_EQ (knob.getValueText(), "3.0 dB");
    rig.processor.set ("gain", 0.25f);
    EXPECT_EQ (knob.getValueText(), "-6.0 dB");
    EXPECT_EQ (knob.getValue(), 0.25f);
    rig.processor.take();

    Mouse mouse (knob);
    mouse.down ({ 10.0f, 50.0f });
    mouse.drag ({ 10.0f, 15.0f });
    mouse.drag ({ 10.0f, -20.0f });
    mouse.up ({ 10.0f, -20.0f });
    EXPECT_EQ (rig.processor.take(), "< begin 0.50 0.75 end >");
    EXPECT_EQ (knob.getValueText(), "6.0 dB");

    knob.triggerReset();
    EXPECT_EQ (rig.processor.take(), "< begin 0.62 end >");
    EXPECT_EQ (knob.getValueText(), "3.0 dB");
}

TEST (Scaffold, AResetIsOneStepOfTheHistory)
{
    ScaffoldRig rig;
    auto& processor = rig.processor;
    processor.set ("gain", 0.25f);
    processor.tree.copyState(); // brings the tree up to date
    rig.scaffold->onGestureEnd = [&] { processor.tree.copyState(); };

    rig.scaffold->getInputOutputPanel().getInput().getGain1().triggerReset();
    EXPECT_EQ (processor.get ("gain"), 0.625f);
    EXPECT_TRUE (processor.undo.undo());
    EXPECT_EQ (processor.get ("gain"), 0.25f);
}

TEST (Scaffold, ASwitchIsOneGesturePerClickAndNoneWhenTheHostMovesIt)
{
    ScaffoldRig rig;
    auto& link = rig.scaffold->getGlobalPanel().getLink();
    Mouse (link).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.processor.take(), "< begin 1.00 end link >");
    EXPECT_TRUE (link.getToggleState());

    rig.processor.set ("link", 0.0f);
    EXPECT_FALSE (link.getToggleState());
    EXPECT_EQ (rig.processor.take(), "link 0.00");

    Mouse (rig.scaffold->getGlobalPanel().getMsMode()).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.processor.take(), "< begin 1.00 end ms >");

    link.setToggleState (true, juce::dontSendNotification); // a refresh
    EXPECT_EQ (rig.processor.take(), "");
}

TEST (Scaffold, ALaneIsLitWhileItsBypassIsOff)
{
    ScaffoldRig rig;
    controls::PowerButton power (juce::Colours::green);
    power.setSize (26, 26);
    power.setVisible (true);
    std::unique_ptr<juce::ParameterAttachment> slot;
    power.onClick = [&] { rig.processor.events.add ("previous"); };
    rig.scaffold->wireLaneEnableButton ("bypass", power, slot, [&] { rig.processor.events.add ("changed"); });
    EXPECT_TRUE (power.getToggleState());

    Mouse (power).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.processor.get ("bypass"), 1.0f);
    EXPECT_EQ (rig.processor.take(), "< begin 1.00 end previous changed >");
    rig.processor.set ("bypass", 0.0f);
    EXPECT_TRUE (power.getToggleState());
    EXPECT_EQ (rig.processor.take(), "0.00");

    rig.scaffold->wireLaneEnableButton ("link", power, slot); // to another parameter: the first attachment is gone
    Mouse (power).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.processor.take(), "< begin link 1.00 end previous changed >");
    EXPECT_EQ (rig.processor.get ("bypass"), 0.0f);
}

TEST (Scaffold, WhatIsNotNamedStaysUnconnectedAndIsPainted)
{
    ScaffoldRig rig { ParameterIds {} };
    auto& section = rig.scaffold->getInputOutputPanel().getInput();
    EXPECT_EQ (section.getGain1().onDragStart, nullptr);
    EXPECT_EQ (section.getGain1().getValueText(), "50%");
    Mouse (rig.scaffold->getGlobalPanel().getBypass()).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.processor.take(), "");

    ScaffoldRig named;
    EXPECT_EQ (named.scaffold->getInputOutputPanel().getOutput().getGain1().onDragStart, nullptr)
        << "no such parameter";

    const auto painted = paintPicture (section.getGain1());
    EXPECT_GT (countDifferentPixels (
                   painted, juce::Image (juce::Image::ARGB, painted.getWidth(), painted.getHeight(), true), 8),
        500);
}

TEST (Scaffold, WithoutAnInputOutputPanelTheGlobalPanelHasTheGains)
{
    auto ids = ScaffoldRig::someIds();
    ids.flags = 0;
    ScaffoldRig rig { ids };
    EXPECT_FALSE (rig.scaffold->getInputOutputPanel().isVisible());
    EXPECT_TRUE (rig.scaffold->getGlobalPanel().getInput().isVisible());
    EXPECT_EQ (rig.scaffold->getGlobalPanel().getInput().getGain1().getValueText(), "3.0 dB");
    EXPECT_EQ (rig.scaffold->getInputOutputPanel().getInput().getGain1().onDragStart, nullptr);
}

TEST (Scaffold, LanesShowAndSetTheChannelModeInPairs)
{
    ScaffoldRig rig;
    auto& lanes = rig.scaffold->getLaneStack();
    EXPECT_EQ (lanes.getModeSelector (1).getButtonText(), "STEREO");

    lanes.getModeSelector (1).choose (controls::LaneMode::mid);
    EXPECT_EQ (rig.processor.take(), "< begin 0.50 end >"); // the first lane's side
    EXPECT_EQ (lanes.getModeSelector (0).getButtonText(), "SIDE");

    lanes.getModeSelector (0).choose (controls::LaneMode::stereo);
    EXPECT_EQ (rig.processor.get ("mode"), 1.0f);
}

TEST (Scaffold, AGestureEndsWithTheScaffold)
{
    ScaffoldRig rig;
    Mouse (rig.scaffold->getInputOutputPanel().getInput().getGain1()).down ({ 10.0f, 50.0f });
    rig.scaffold.reset();
    EXPECT_EQ (rig.processor.take(), "< begin end >");
}

/** No control of a panel lies over another one or outside. */
void expectTidy (juce::Component& panel)
{
    std::vector<juce::Component*> shown;

    for (auto* child : panel.getChildren())
        if (child->isVisible() && dynamic_cast<primitives::SidePanel*> (child) == nullptr)
            shown.push_back (child);

    for (std::size_t i = 0; i < shown.size(); ++i)
    {
        EXPECT_FALSE (shown[i]->getBounds().isEmpty()) << shown[i]->getTitle();
        EXPECT_TRUE (panel.getLocalBounds().contains (shown[i]->getBounds())) << shown[i]->getTitle();

        for (std::size_t j = i + 1; j < shown.size(); ++j)
            EXPECT_FALSE (shown[i]->getBounds().intersects (shown[j]->getBounds()))
                << shown[i]->getTitle() << " and " << shown[j]->getTitle();
    }
}

TEST (Panels, AreTidyInEveryLayout)
{
    for (const auto flags : { 0, ParameterIds::separateInputOutput })
    {
        SCOPED_TRACE (flags);
        auto ids = ScaffoldRig::someIds();
        ids.flags = flags;
        ScaffoldRig rig { ids };
        juce::Component extra;
        rig.scaffold->setExtraContent (&extra);
        auto& global = rig.scaffold->getGlobalPanel();
        auto& io = rig.scaffold->getInputOutputPanel();
        expectTidy (global);
        expectTidy (flags == 0 ? global.getInput() : io.getInput());
        expectTidy (flags == 0 ? global.getOutput() : io.getOutput());
    }
}

TEST (HeaderBar, PlacesToolsInTheSlotsAndShowsTheDefaultPresetUntilThere)
{
    layout::HeaderBar header;
    header.setBounds (0, 0, 1672, 68);
    const auto slot = style::Theme::get().header.presetSelector;
    const auto without = paintPicture (header);

    juce::Component selector;
    header.place (selector, slot);
    EXPECT_EQ (selector.getBounds(), slot);
    EXPECT_GT (countDifferentPixels (without, paintPicture (header), 8), 200);

    const auto plain = paintPicture (header);
    header.setProductName ("Kestrel EQ");
    header.setVersionText ("v1.2.0");
    header.setSubtitle ("A threat to crystal.");
    const auto named = paintPicture (header);
    EXPECT_GT (countDifferentPixels (plain, named, 8), 300);

    // The names stay clear of the tools.
    const auto tools = Box (1000, 0, 672, 68);
    EXPECT_EQ (countDifferentPixels (plain.getClippedImage (tools), named.getClippedImage (tools), 0), 0);
}

TEST (Panels, KnobsTakeTheColourThatTheirPanelIsGiven)
{
    GlobalIoPanel panel (juce::Colour (0xff00f080)); // none of the theme's
    panel.setSize (272, 348);
    const auto picture = paintPicture (panel.getTrimKnob());
    auto green = 0;

    for (int y = 0; y < picture.getHeight(); ++y)
        for (int x = 0; x < picture.getWidth(); ++x)
            green += picture.getPixelAt (x, y) == juce::Colour (0xff00f080);

    EXPECT_GT (green, 50);
}

} // namespace
} // namespace kestreleq::test
