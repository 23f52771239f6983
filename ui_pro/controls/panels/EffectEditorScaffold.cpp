#include "ui_pro/controls/panels/EffectEditorScaffold.h"

#include "ui_pro/controls/buttons/LaneEnableAttachment.h"
#include "ui_pro/controls/knob/KnobAttachment.h"
#include "ui_pro/primitives/ParameterTag.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int columnWidth = 260;
constexpr int globalHeight = 348;
constexpr int gutter = 8;

/** Two at least, and a strip for every lane that is named. */
int countLanes (const ParameterIds& ids)
{
    auto count = static_cast<int> (ids.laneBypass.size());

    while (count > 2 && ids.laneBypass[static_cast<std::size_t> (count) - 1] == nullptr)
        --count;

    return count;
}

/** Appends to what a click does. */
void addClickAction (juce::Button& button, std::function<void()> action)
{
    if (action != nullptr)
        button.onClick = [previous = std::move (button.onClick), action = std::move (action)]
        {
            juce::NullCheckedInvocation::invoke (previous);
            action();
        };
}

} // namespace

EffectEditorScaffold::EffectEditorScaffold (juce::AudioProcessorValueTreeState& parameterState,
    const ParameterIds& parameterIds, juce::Colour primary, juce::Colour secondary, juce::UndoManager* undo)
    : state (parameterState),
      ids (parameterIds),
      undoManager (undo),
      laneStack (primary, countLanes (parameterIds)),
      globalPanel (primary),
      inputOutputPanel (primary, secondary)
{
    const auto isSeparate = (ids.flags & ParameterIds::separateInputOutput) != 0;
    globalPanel.setShowsInputOutput (! isSeparate);
    addAndMakeVisible (laneStack);
    addAndMakeVisible (globalPanel);
    addChildComponent (inputOutputPanel);
    inputOutputPanel.setVisible (isSeparate);

    wireBoolButton (ids.bypass, globalPanel.getBypass(), bypassSlot);
    wireBoolButton (
        ids.link, globalPanel.getLink(), linkSlot, [this] { juce::NullCheckedInvocation::invoke (onLinkChanged); });
    wireMsModeButton();
    wireSection (isSeparate ? inputOutputPanel.getInput() : globalPanel.getInput(),
        { ids.inGain1, ids.inGain2, ids.inGainLink, ids.inAutoGain }, 0);
    wireSection (isSeparate ? inputOutputPanel.getOutput() : globalPanel.getOutput(),
        { ids.outGain1, ids.outGain2, ids.outGainLink, ids.outAutoGain }, 1);

    for (int lane = 0; lane < laneStack.getNumLanes(); ++lane)
    {
        const auto index = static_cast<std::size_t> (lane);
        wireLaneEnableButton (ids.laneBypass[index], laneStack.getEnableButton (lane), laneSlots[index]);
    }

    wireLaneModeChoice();
}

EffectEditorScaffold::~EffectEditorScaffold()
{
    gainSlots = {}; // ends what is dragged

    while (openGestures > 0)
        endGesture();
}

void EffectEditorScaffold::wireKnob (const char* paramId, KnobControl& knob, KnobSlot& slot)
{
    auto* const parameter = find (paramId);

    if (parameter == nullptr)
        return;

    slot.reset(); // ends a drag that it began
    slot = std::make_unique<KnobAttachment> (*parameter, knob,
        primitives::GestureHooks { [this] { beginGesture(); }, [this] { endGesture(); } }, undoManager);
}

void EffectEditorScaffold::wireBoolButton (
    const char* paramId, juce::Button& button, ButtonSlot& slot, std::function<void()> onChange)
{
    auto* const parameter = find (paramId);

    if (parameter == nullptr)
        return;

    button.setClickingTogglesState (true);
    bracketClicks (button);
    primitives::setParameterIndex (button, parameter->getParameterIndex());
    slot = std::make_unique<juce::ButtonParameterAttachment> (*parameter, button, undoManager);
    addClickAction (button, std::move (onChange));
}

void EffectEditorScaffold::wireLaneEnableButton (
    const char* paramId, juce::Button& button, KnobSlot& slot, std::function<void()> onChange)
{
    auto* const parameter = find (paramId);

    if (parameter == nullptr)
        return;

    bracketClicks (button);
    slot = std::make_unique<LaneEnableAttachment> (*parameter, button, undoManager);
    addClickAction (button, std::move (onChange));
}

void EffectEditorScaffold::wireMsModeButton()
{
    wireBoolButton (ids.msMode, globalPanel.getMsMode(), msModeSlot,
        [this] { juce::NullCheckedInvocation::invoke (onMsModeChanged); });
}

void EffectEditorScaffold::wireLaneModeChoice()
{
    auto* const parameter = find (ids.choiceId);

    if (parameter == nullptr)
        return;

    const auto modeOf = [] (LaneMode first, int lane) { return lane % 2 == 0 ? first : partnerOf (first); };

    choiceSlot = std::make_unique<juce::ParameterAttachment> (
        *parameter,
        [this, modeOf] (float index)
        {
            for (int lane = 0; lane < laneStack.getNumLanes(); ++lane)
                laneStack.getModeSelector (lane).setMode (
                    modeOf (laneModeOfChoice (juce::roundToInt (index), ids), lane));
        },
        undoManager);

    for (int lane = 0; lane < laneStack.getNumLanes(); ++lane)
    {
        auto& selector = laneStack.getModeSelector (lane);
        bracketClicks (selector);
        selector.onChoice = [this, modeOf, lane] (LaneMode chosen)
        {
            const auto index = choiceOfLaneMode (modeOf (chosen, lane), ids);
            choiceSlot->setValueAsCompleteGesture (static_cast<float> (index));
        };
    }

    choiceSlot->sendInitialUpdate();
}

void EffectEditorScaffold::resized()
{
    const auto columnX = getWidth() - columnWidth;
    laneStack.setBounds (0, 0, std::max (columnX - gutter, 0), getHeight());
    globalPanel.setBounds (columnX, 0, columnWidth, globalHeight);
    inputOutputPanel.setBounds (
        columnX, globalHeight + gutter, columnWidth, std::max (getHeight() - globalHeight - gutter, 0));
}

juce::RangedAudioParameter* EffectEditorScaffold::find (const char* paramId) const
{
    return paramId != nullptr ? state.getParameter (paramId) : nullptr;
}

void EffectEditorScaffold::wireSection (
    GainSection& section, const std::array<const char*, 4>& sectionIds, std::size_t side)
{
    wireKnob (sectionIds[0], section.getGain1(), gainSlots[side][0]);
    wireKnob (sectionIds[1], section.getGain2(), gainSlots[side][1]);
    wireBoolButton (sectionIds[2], section.getLink(), gainLinkSlots[side]);
    wireBoolButton (sectionIds[3], section.getAutoGain(), autoGainSlots[side]);
}

void EffectEditorScaffold::bracketClicks (juce::Button& button)
{
    if (auto* const face = dynamic_cast<primitives::FaceButton*> (&button))
    {
        face->onGestureStart = [this] { beginGesture(); };
        face->onGestureEnd = [this] { endGesture(); };
    }
}

void EffectEditorScaffold::beginGesture()
{
    ++openGestures;
    juce::NullCheckedInvocation::invoke (onGestureStart);
}

void EffectEditorScaffold::endGesture()
{
    --openGestures;
    juce::NullCheckedInvocation::invoke (onGestureEnd);
}

} // namespace quillon::ui_pro::controls
