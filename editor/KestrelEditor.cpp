#include "editor/KestrelEditor.h"

#include "editor/EditorLayout.h"
#include "editor/GlobalParameters.h"
#include "editor/SupportRecord.h"
#include "ui_pro/controls/presets/PresetBrowserPopup.h"
#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/primitives/ParameterTag.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr int tickInterval = 50; // ms
constexpr int smallestWidth = layout::designWidth / 2;
constexpr int smallestHeight = layout::designHeight / 2;
constexpr int largestWidth = layout::designWidth * 2;
constexpr int largestHeight = layout::designHeight * 2;

/** Only KestrelEditor::mouseDown decides what a click does with the keyboard. */
void keepFocusFromClicks (juce::Component& component)
{
    component.setMouseClickGrabsKeyboardFocus (false);

    for (auto* child : component.getChildren())
        keepFocusFromClicks (*child);
}

} // namespace

KestrelEditor::KestrelEditor (KestrelProcessor& processorToEdit)
    : AudioProcessorEditor (processorToEdit),
      equaliser (processorToEdit),
      levels (processorToEdit),
      header (processorToEdit, manifest, { [this] { refreshEditor(); }, [this] { openSupport(); } }),
      breakButton (style::Theme::accent (16)),
      footer (processorToEdit, "v" + manifest.version())
{
    addAndMakeVisible (background);
    addAndMakeVisible (content);
    addChildComponent (overlay);
    content.setInterceptsMouseClicks (false, true);
    content.addMouseListener (this, true);
    header.addTo (content);

    for (std::size_t lane = 0; lane < numLanes; ++lane)
    {
        lanes[lane] = std::make_unique<LaneSection> (equaliser, lane, stepHooks());
        lanes[lane]->addTo (content);
        lanes[lane]->getChart().onNodeMenu = [this, lane] (const auto& parameter, juce::Point<int> position)
        { openHostMenu (parameter, getLocalPoint (&lanes[lane]->getChart(), position)); };
    }

    breakButton.setButtonText ("BREAK");
    breakButton.setTitle ("BREAK");
    breakButton.setTooltip ("Distortion of the boosted bands and of the air.");
    initialiseScaffold();
    footer.addTo (content);
    refreshChannelMode();
    refreshLinkState();
    initialiseTooltips();
    initialiseOverlay();
    initialiseWindow();
    initialiseKeyboard();
}

KestrelEditor::~KestrelEditor()
{
    stopTimer();
    cancelPendingUpdate();
    equaliser.setCapturing (false);
    removeKeyListener (&header.getKeyListener());

    if (resizableCorner != nullptr)
        resizableCorner->setLookAndFeel (nullptr);
}

/** A gesture is a step of the history; a key that is still held goes on in another one. */
primitives::GestureHooks KestrelEditor::stepHooks()
{
    return { [this]
        {
            for (auto& lane : lanes)
                lane->getChart().endHeldKey();

            equaliser.getCore().getHistory().beginStep();
            header.refreshCommands();
        },
        [this]
        {
            equaliser.getCore().getHistory().endStep();
            header.refreshCommands();
        } };
}

void KestrelEditor::initialiseScaffold()
{
    // No undo manager: attachments would use it without the history's lock, and the steps are begun below.
    scaffold = std::make_unique<controls::EffectEditorScaffold> (equaliser.getCore().getTree(), globalParameters(),
        style::Theme::accent (5), style::Theme::accent (16), nullptr);
    scaffold->onGestureStart = stepHooks().start;
    scaffold->onGestureEnd = stepHooks().end;
    scaffold->onLinkChanged = [this] { triggerAsyncUpdate(); };
    scaffold->onMsModeChanged = [this] { triggerAsyncUpdate(); };
    scaffold->setLaneAreaVisible (false);
    scaffold->setExtraContent (&breakWrapper);
    scaffold->wireKnob (infoOf (Parameter::trim).id, scaffold->getGlobalPanel().getTrimKnob(), trimAttachment);
    scaffold->wireBoolButton (infoOf (Parameter::breakMode).id, breakButton, breakAttachment);
    content.addAndMakeVisible (*scaffold);
}

void KestrelEditor::initialiseTooltips()
{
    const auto& palette = style::Theme::palette();
    tooltips.setInterceptsMouseClicks (false, false); // it may lie over the next button
    tooltips.setOpaque (false);                       // its corners are round
    tooltips.setColour (juce::TooltipWindow::backgroundColourId, palette.surface2);
    tooltips.setColour (juce::TooltipWindow::outlineColourId, palette.outlineStrong);
    tooltips.setColour (juce::TooltipWindow::textColourId, palette.textPrimary);
}

void KestrelEditor::initialiseOverlay()
{
    overlay.onCoverChanged = [this]
    {
        content.setAccessible (! overlay.isVisible());

        if (overlay.isVisible())
            removeKeyListener (&header.getKeyListener());
        else
            addKeyListener (&header.getKeyListener());
    };
}

void KestrelEditor::initialiseKeyboard()
{
    setTitle (manifest.name());
    setFocusContainerType (FocusContainerType::focusContainer); // for screen readers
    background.addMouseListener (this, false);
    keepFocusFromClicks (*this);

    // The Tab key goes as the sections were added: from the header through the lanes and the side panel to the footer.
    for (int i = 0; i < content.getNumChildComponents(); ++i)
        content.getChildComponent (i)->setExplicitFocusOrder (i + 1);
}

void KestrelEditor::mouseDown (const juce::MouseEvent&)
{
    if (! hasKeyboardFocus (false) && findOpenPopup() == nullptr)
        grabKeyboardFocus();
}

void KestrelEditor::focusGainedWithDirection (FocusChangeType cause, FocusChangeDirection direction)
{
    juce::AudioProcessorEditor::focusGainedWithDirection (cause, direction);

    if (cause == focusChangedByTabKey)
        moveKeyboardFocusToSibling (direction != FocusChangeDirection::backward);
}

int KestrelEditor::getControlParameterIndex (juce::Component& control)
{
    return primitives::parameterIndexAt (control);
}

void KestrelEditor::openHostMenu (const juce::AudioProcessorParameter& parameter, juce::Point<int> position)
{
    if (const auto* context = getHostContext())
        if (const auto menu = context->getContextMenuForParameter (&parameter))
            menu->showNativeMenu (position);
}

void KestrelEditor::focusGained (FocusChangeType cause)
{
    if (cause != focusChangedDirectly || findOpenPopup() == nullptr)
        return;

    // Not at once: the window system may still be passing the keyboard to and fro.
    juce::MessageManager::callAsync (
        [self = SafePointer<KestrelEditor> (this)]
        {
            if (auto* editor = self.getComponent(); editor != nullptr && editor->hasKeyboardFocus (false))
                editor->giveKeyboardToPopup();
        });
}

void KestrelEditor::giveKeyboardToPopup()
{
    if (auto* popup = findOpenPopup())
        popup->grabKeyboardFocus();
}

juce::Component* KestrelEditor::findOpenPopup()
{
    if (overlay.isVisible())
        return &overlay;

    if (auto* const list = primitives::DropDownList::findOpenIn (*this))
        return list;

    auto* const browser = header.getPresetSelector().getBrowser();
    return browser != nullptr ? &browser->getSearchField() : nullptr;
}

std::unique_ptr<juce::AccessibilityHandler> KestrelEditor::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::group);
}

void KestrelEditor::handleAsyncUpdate()
{
    refreshChannelMode();
    resized();
}

void KestrelEditor::initialiseWindow()
{
    setResizable (true, true);
    setResizeLimits (smallestWidth, smallestHeight, largestWidth, largestHeight);
    getConstrainer()->setFixedAspectRatio (static_cast<double> (smallestWidth) / smallestHeight);

    if (resizableCorner != nullptr)
    {
        resizableCorner->setLookAndFeel (&resizeLookAndFeel);
        resizableCorner->setAccessible (false); // the host's window tells its size
    }

    setWantsKeyboardFocus (true);
    addKeyListener (&header.getKeyListener());

    const auto* const display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    setBounds (layout::openingSize (
        equaliser.getEditorScaleStep(), display != nullptr ? display->userArea : juce::Rectangle<int>()));
    openingBounds = getLocalBounds();
    constructed = true;

    seenStateChange = equaliser.getStateChangeCounter();
    equaliser.setCapturing (true);
    startTimer (tickInterval);
}

void KestrelEditor::resized()
{
    background.setBounds (getLocalBounds());
    overlay.setBounds (getLocalBounds());

    const auto placement = layout::placeContent (getWidth(), getHeight());
    scale = placement.scale;
    contentBounds = placement.bounds;
    content.setBounds (0, 0, layout::designWidth, layout::designHeight);
    content.setTransform (placement.transform());
    layOutCanvas();
    storeScaleStep();
}

void KestrelEditor::layOutCanvas()
{
    laidOutLinked = readMode().linked;
    header.place();

    for (std::size_t lane = 0; lane < numLanes; ++lane)
        lanes[lane]->place (layout::placeLane (lane, laidOutLinked));

    lanes[1]->setVisible (! laidOutLinked);
    scaffold->setBounds (layout::sidePanel());
    footer.place();

    juce::RectangleList<int> covered;
    for (std::size_t lane = 0; lane < (laidOutLinked ? 1 : numLanes); ++lane)
    {
        auto& chart = lanes[lane]->getChart();
        covered.add (background.getLocalArea (&chart, chart.getLocalBounds().toFloat()).getLargestIntegerWithin());
    }
    background.setCovered (std::move (covered));
}

void KestrelEditor::storeScaleStep()
{
    if (! constructed || getLocalBounds() == openingBounds)
        return;

    equaliser.setEditorScaleStep (layout::stepOfScale (scale));
    openingBounds = {}; // from the first other size on, every size counts
}

ChannelMode KestrelEditor::readMode() const
{
    const auto& values = equaliser.getCore().getValues();
    return { values.isOn (Parameter::link), values.isOn (Parameter::msMode) };
}

void KestrelEditor::refreshChannelMode()
{
    const auto mode = readMode();

    if (shownMode != mode)
    {
        shownMode = mode;
        footer.setMode (mode);

        for (std::size_t lane = 0; lane < numLanes; ++lane)
            if (lane == 0 || ! mode.linked)
                lanes[lane]->setLook (mode.lookOf (lane));
    }

    breakButton.setToggleState (
        equaliser.getCore().getValues().isOn (Parameter::breakMode), juce::dontSendNotification);

    for (auto& lane : lanes)
        lane->refreshPower();
}

void KestrelEditor::refreshCharts()
{
    for (auto& lane : lanes)
        lane->getChart().refresh();
}

void KestrelEditor::refreshLinkState()
{
    if (readMode().linked != laidOutLinked)
        layOutCanvas();
}

void KestrelEditor::refreshEditor()
{
    refreshChannelMode();
    refreshCharts();
    refreshLinkState();
    header.refresh();
    resized();
    repaint();
}

void KestrelEditor::tick()
{
    if (! equaliser.isCapturing()) // preparing switches it off
        equaliser.setCapturing (true);

    levels.update();

    if (const auto counter = equaliser.getStateChangeCounter(); counter != seenStateChange)
    {
        seenStateChange = counter;
        levels.clear();

        for (auto& lane : lanes)
            lane->clearLevels();

        footer.clearLevels();
        header.refresh();
    }

    refreshChannelMode();
    refreshCharts();
    refreshLinkState();
    header.refreshCommands();
    pushLevels();
    footer.refreshTelemetry();
}

void KestrelEditor::pushLevels()
{
    for (std::size_t lane = 0; lane < numLanes; ++lane)
        lanes[lane]->setLevels (levels.getInput()[lane], levels.getOutput()[lane]);

    footer.setLevels (levels.getInput(), levels.getOutput());
}

void KestrelEditor::setClock (const std::function<double()>& clock)
{
    levels.clock = clock;

    for (auto& lane : lanes)
        lane->setClock (clock);

    footer.setClock (clock);
    overlay.clock = clock;
}

void KestrelEditor::openSupport()
{
    if (supportPanel == nullptr)
    {
        supportPanel = std::make_unique<controls::SupportDiagnosticsPanel>();
        supportPanel->setHooks ({ [this] { header.selectProgram (0); }, [this] { overlay.close(); } });
    }

    supportPanel->setRecord (makeSupportRecord (equaliser, manifest));
    overlay.show (supportPanel.get());
}

} // namespace kestreleq
