#pragma once

#include "editor/BreakWrapper.h"
#include "editor/ChannelMode.h"
#include "editor/EditorFooter.h"
#include "editor/LiveLevels.h"
#include "editor/ResourceManifest.h"
#include "editor/header/EditorHeader.h"
#include "editor/lane/LaneSection.h"

#include "engine/KestrelProcessor.h"
#include "ui_pro/chrome/ResizeHandleLookAndFeel.h"
#include "ui_pro/controls/buttons/OnOffButton.h"
#include "ui_pro/controls/panels/EffectEditorScaffold.h"
#include "ui_pro/controls/support/SupportDiagnosticsPanel.h"
#include "ui_pro/overlays/SlideInOverlay.h"
#include "ui_pro/primitives/RoleComponent.h"
#include "ui_pro/primitives/RootBackground.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace kestreleq
{

/** The plug-in's window: one canvas of a fixed size, scaled as a whole to the window. It polls the processor twenty
    times a second, and switches the processor's analysers on for as long as it lives. Message thread. */
class KestrelEditor final : public juce::AudioProcessorEditor, private juce::Timer, private juce::AsyncUpdater
{
public:
    explicit KestrelEditor (KestrelProcessor& processorToEdit);
    ~KestrelEditor() override;

    void resized() override;

    /** A press anywhere: the editor takes the keyboard, for its shortcuts, unless a popup has it. The keys that it does
        not take go on to the host. */
    void mouseDown (const juce::MouseEvent& event) override;

    /** The Tab key goes past the editor itself to its controls. */
    void focusGainedWithDirection (FocusChangeType cause, FocusChangeDirection direction) override;

    /** What the window system answers to the click that opened a popup may come after the popup took the keyboard, and
        the framework then hands the keyboard to whoever had it before: the popup gets it back. */
    void focusGained (FocusChangeType cause) override;

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

    /** The parameter that a control changes, for a host that asks what is under the mouse; -1 for none. */
    int getControlParameterIndex (juce::Component& control) override;

    /** Shows the processor as it is now, after anything that may have changed everything. */
    void refreshEditor();

    /** Slides the support and diagnostics panel in. */
    void openSupport();

    /** What lies over the editor and has the keyboard: the sheet, a list, or the browser's search field; or null. */
    juce::Component* findOpenPopup();

    /** One round of the timer, for whoever has no time to wait. */
    void tick();

    /** Replaces the clock, in milliseconds, of everything that falls or slides with time. */
    void setClock (const std::function<double()>& clock);

    LaneSection& getLane (std::size_t lane) { return *lanes[lane]; }

    EditorHeader& getHeader() { return header; }

    EditorFooter& getFooter() { return footer; }

    quillon::ui_pro::controls::EffectEditorScaffold& getScaffold() { return *scaffold; }

    quillon::ui_pro::overlays::SlideInOverlay& getOverlay() { return overlay; }

    float getScale() const { return scale; }

private:
    void timerCallback() override { tick(); }

    /** A change of link or mid/side, which may be told from within a parameter's listener: hiding a lane's knobs there
        could end a step of the history, which waits for a lock that the listener's caller holds. */
    void handleAsyncUpdate() override;

    quillon::ui_pro::primitives::GestureHooks stepHooks();
    void initialiseScaffold();
    void initialiseWindow();
    void initialiseTooltips();
    void initialiseOverlay();
    void initialiseKeyboard();
    void giveKeyboardToPopup();
    void openHostMenu (const juce::AudioProcessorParameter& parameter, juce::Point<int> position);
    void layOutCanvas();
    void storeScaleStep();

    ChannelMode readMode() const;
    void refreshChannelMode();
    void refreshCharts();
    void refreshLinkState();
    void pushLevels();

    KestrelProcessor& equaliser;
    LiveLevels levels;
    ResourceManifest manifest;
    quillon::ui_pro::chrome::ResizeHandleLookAndFeel resizeLookAndFeel;
    quillon::ui_pro::primitives::RootBackground background;
    quillon::ui_pro::primitives::SilentComponent content;
    EditorHeader header;
    std::array<std::unique_ptr<LaneSection>, numLanes> lanes;
    quillon::ui_pro::controls::OnOffButton breakButton;
    BreakWrapper breakWrapper { breakButton };
    std::unique_ptr<quillon::ui_pro::controls::EffectEditorScaffold> scaffold;
    EditorFooter footer;
    std::unique_ptr<quillon::ui_pro::controls::SupportDiagnosticsPanel> supportPanel; // once it was opened
    quillon::ui_pro::overlays::SlideInOverlay overlay;
    juce::TooltipWindow tooltips { this };

    std::unique_ptr<juce::ButtonParameterAttachment> breakAttachment;
    std::unique_ptr<juce::ParameterAttachment> trimAttachment;

    float scale = 1.0f;
    juce::Rectangle<int> contentBounds; // of the canvas, in pixels of the window
    std::optional<ChannelMode> shownMode;
    bool laidOutLinked = true;
    std::uint32_t seenStateChange = 0;
    juce::Rectangle<int> openingBounds;
    bool constructed = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (KestrelEditor)
};

} // namespace kestreleq
