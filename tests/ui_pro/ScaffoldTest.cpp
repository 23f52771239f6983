#include "tests/support/Mouse.h"

#include "ui_pro/controls/buttons/PowerButton.h"
#include "ui_pro/controls/panels/EffectEditorScaffold.h"

#include <gtest/gtest.h>

#include <optional>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;
using controls::EffectEditorScaffold;
using controls::ParameterIds;

/** A processor with nothing but parameters, as a graph without any node is; it writes down gestures and values. */
class SmallProcessor final : public juce::AudioProcessorGraph, private juce::AudioProcessorListener
{
public:
    SmallProcessor()
        : tree (*this, &undo, "State", makeLayout())
    {
        addListener (this);
    }

    ~SmallProcessor() override { removeListener (this); }

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

    rig.scaffold->onLinkChanged = [&rig] { rig.scaffold.reset(); }; // the window closes within the click
    Mouse (link).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.processor.take(), "< >");
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

TEST (Scaffold, WhatIsNotNamedStaysUnconnected)
{
    ScaffoldRig rig { ParameterIds {} };
    EXPECT_EQ (rig.scaffold->getInputOutputPanel().getInput().getGain1().onDragStart, nullptr);
    Mouse (rig.scaffold->getGlobalPanel().getBypass()).click ({ 5.0f, 5.0f });
    EXPECT_EQ (rig.processor.take(), "");

    ScaffoldRig named;
    EXPECT_EQ (named.scaffold->getInputOutputPanel().getOutput().getGain1().onDragStart, nullptr)
        << "no such parameter";

    auto ids = ScaffoldRig::someIds();
    ids.flags = 0;
    ScaffoldRig single { ids };
    EXPECT_FALSE (single.scaffold->getInputOutputPanel().isVisible());
    EXPECT_EQ (single.scaffold->getInputOutputPanel().getInput().getGain1().onDragStart, nullptr);
    EXPECT_EQ (single.scaffold->getGlobalPanel().getInput().getGain1().getValueText(), "3.0 dB")
        << "the one panel has the gains";
}

} // namespace
} // namespace kestreleq::test
