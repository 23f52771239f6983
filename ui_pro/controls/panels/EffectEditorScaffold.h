#pragma once

#include "ui_pro/controls/panels/GlobalIoPanel.h"
#include "ui_pro/controls/panels/InputOutputPanel.h"
#include "ui_pro/controls/panels/LaneStackPanel.h"
#include "ui_pro/controls/panels/ParameterIds.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <array>
#include <functional>
#include <memory>

namespace quillon::ui_pro::controls
{

/** The body of an effect's editor: lane strips at the left, the global panel above the input and output panel at the
    right, all connected to the effect's parameters. Message thread. */
class EffectEditorScaffold final : public primitives::SilentComponent
{
public:
    /** The state and the undo manager, which may be null, must outlive the scaffold. */
    EffectEditorScaffold (juce::AudioProcessorValueTreeState& parameterState, const ParameterIds& parameterIds,
        juce::Colour primary, juce::Colour secondary, juce::UndoManager* undo);
    ~EffectEditorScaffold() override;

    /** Called right before an attachment begins a gesture of the user, and right after it has ended it: for every drag
        of a wired knob, every reset, and every click on a wired button of the library. Never from within a parameter's
        listener; a gesture that is open when the scaffold goes away is ended. */
    std::function<void()> onGestureStart;
    std::function<void()> onGestureEnd;

    /** Called after LINK L/R, or M/S MODE, has changed, by the user or from outside. */
    std::function<void()> onLinkChanged;
    std::function<void()> onMsModeChanged;

    /** Connects a knob, as KnobAttachment does; a null or unknown identifier connects nothing. The slot takes the
        attachment and must go before the knob; the scaffold must outlive both. The same holds for the next two. */
    void wireKnob (const char* paramId, KnobControl& knob, std::unique_ptr<juce::ParameterAttachment>& slot);

    /** Connects a toggle that is on at 0.5 or more. The button's click action becomes its previous one followed by
        onChange, if there is one; the framework's attachment runs it at changes from outside too. */
    void wireBoolButton (const char* paramId, juce::Button& button,
        std::unique_ptr<juce::ButtonParameterAttachment>& slot, std::function<void()> onChange = {});

    /** Connects a toggle to a bypass parameter, as LaneEnableAttachment does; onChange as above. */
    void wireLaneEnableButton (const char* paramId, juce::Button& button,
        std::unique_ptr<juce::ParameterAttachment>& slot, std::function<void()> onChange = {});

    void wireMsModeButton();

    /** The first lane shows the choice, the second what its partner carries, and so on in pairs. */
    void wireLaneModeChoice();

    LaneStackPanel& getLaneStack() { return laneStack; }

    GlobalIoPanel& getGlobalPanel() { return globalPanel; }

    InputOutputPanel& getInputOutputPanel() { return inputOutputPanel; }

    /** A component in the global panel, not owned. */
    void setExtraContent (juce::Component* content) { globalPanel.setExtraContent (content); }

    /** For an editor whose lanes are panels of its own. */
    void setLaneAreaVisible (bool shouldBeVisible) { laneStack.setVisible (shouldBeVisible); }

    void resized() override;

private:
    using KnobSlot = std::unique_ptr<juce::ParameterAttachment>;
    using ButtonSlot = std::unique_ptr<juce::ButtonParameterAttachment>;

    juce::RangedAudioParameter* find (const char* paramId) const;
    void wireSection (GainSection& section, const std::array<const char*, 4>& sectionIds, std::size_t side);
    void bracketClicks (juce::Button& button);
    void beginGesture();
    void endGesture();

    juce::AudioProcessorValueTreeState& state;
    ParameterIds ids;
    juce::UndoManager* undoManager;

    LaneStackPanel laneStack;
    GlobalIoPanel globalPanel;
    InputOutputPanel inputOutputPanel;

    ButtonSlot bypassSlot;
    ButtonSlot linkSlot;
    ButtonSlot msModeSlot;
    std::array<KnobSlot, 4> laneSlots;
    KnobSlot choiceSlot;
    std::array<std::array<KnobSlot, 2>, 2> gainSlots; // by side: input, output
    std::array<ButtonSlot, 2> gainLinkSlots;
    std::array<ButtonSlot, 2> autoGainSlots;

    int openGestures = 0;
};

} // namespace quillon::ui_pro::controls
