#include "ui_pro/overlays/SlideInOverlay.h"

#include <algorithm>

namespace quillon::ui_pro::overlays
{
namespace
{

constexpr int framesPerSecond = 60;
constexpr double openingMs = 200.0;
constexpr double closingMs = 160.0;
constexpr float dimming = 0.55f; // alpha of the black over the editor

float easeOut (float t)
{
    const auto rest = 1.0f - t;
    return 1.0f - rest * rest * rest;
}

float easeIn (float t)
{
    return t * t * t;
}

} // namespace

SlideInOverlay::SlideInOverlay()
{
    setVisible (false);
    setInterceptsMouseClicks (true, true);
    setWantsKeyboardFocus (true);
    setFocusContainerType (FocusContainerType::keyboardFocusContainer); // the Tab key stays within the sheet
    addKeyListener (this);
}

SlideInOverlay::~SlideInOverlay()
{
    stopTimer();
    removeKeyListener (this);

    if (auto* shown = content.getComponent())
    {
        setContent (nullptr);
        removeChildComponent (shown);
    }
}

void SlideInOverlay::show (juce::Component* component)
{
    if (component == nullptr)
        return;

    if (component == content && opening) // fully shown, or on its way
        return;

    if (content != nullptr && component != content)
    {
        pendingContent = component;
        slideOut();
        return;
    }

    if (component->getParentComponent() != this)
        addChildComponent (component);

    setContent (component);
    pendingContent = nullptr;
    placeContent();
    component->setVisible (true);
    toFront (false);

    if (! isVisible())
    {
        setVisible (true);
        keyboard.take (*this);
    }

    startAnimation (true);
}

void SlideInOverlay::close()
{
    pendingContent = nullptr;
    slideOut();
}

void SlideInOverlay::slideOut()
{
    const auto alreadyClosing = animating && ! opening;

    if ((content == nullptr && ! animating) || alreadyClosing)
        return;

    startAnimation (false);
}

void SlideInOverlay::startAnimation (bool shouldOpen)
{
    animating = true;
    opening = shouldOpen;
    animationStartMs = clock();
    startProgress = progress;
    startTimerHz (framesPerSecond);
}

void SlideInOverlay::advance()
{
    const auto duration = opening ? openingMs : closingMs;
    const auto t = static_cast<float> (std::clamp ((clock() - animationStartMs) / duration, 0.0, 1.0));
    const auto target = opening ? 1.0f : 0.0f;

    progress = t >= 1.0f ? target : startProgress + (target - startProgress) * (opening ? easeOut (t) : easeIn (t));
    placeContent();
    repaint();

    if (t < 1.0f)
        return;

    stopTimer();
    animating = false;

    if (opening)
        finishOpening();
    else
        finishClosing();
}

void SlideInOverlay::finishOpening()
{
    const juce::Component::SafePointer<SlideInOverlay> self (this);

    if (const auto callback = onOpened)
        callback (content);

    // The callback may have closed the sheet, deleted it or put something else in it.
    if (self != nullptr && opening && ! animating && content != nullptr && content->isShowing())
        content->grabKeyboardFocus(); // or the first within it that takes it
}

void SlideInOverlay::finishClosing()
{
    if (auto* shown = content.getComponent())
    {
        setContent (nullptr);
        shown->setVisible (false);
    }

    if (auto* next = pendingContent.getComponent())
    {
        show (next);
    }
    else
    {
        keyboard.giveBack (*this);
        setVisible (false);
    }
}

void SlideInOverlay::setContent (juce::Component* component)
{
    if (content != nullptr)
        content->removeComponentListener (&watcher);

    content = component;

    if (content != nullptr)
        content->addComponentListener (&watcher);
}

void SlideInOverlay::contentDeleted()
{
    // Its listeners must not be touched any more: the next thing that happens is the end of the component.
    content = nullptr;
    stopTimer();
    animating = false;
    opening = false;
    progress = 0.0f;
    finishClosing();
}

void SlideInOverlay::placeContent()
{
    if (content != nullptr)
        content->setBounds (
            getLocalBounds().withX (juce::roundToInt ((1.0f - progress) * static_cast<float> (getWidth()))));
}

void SlideInOverlay::paint (juce::Graphics& g)
{
    if (progress > 0.0f)
        g.fillAll (juce::Colours::black.withAlpha (dimming * progress));
}

void SlideInOverlay::resized()
{
    placeContent();
}

void SlideInOverlay::visibilityChanged()
{
    juce::NullCheckedInvocation::invoke (onCoverChanged);
}

void SlideInOverlay::mouseDown (const juce::MouseEvent& event)
{
    if (event.eventComponent == this)
        close();
}

bool SlideInOverlay::keyPressed (const juce::KeyPress& key, juce::Component*)
{
    if (key.isKeyCode (juce::KeyPress::escapeKey))
    {
        close();
        return true;
    }

    // From the sheet itself the Tab key would lead out of it.
    if (! key.isKeyCode (juce::KeyPress::tabKey) || ! hasKeyboardFocus (false))
        return false;

    if (content != nullptr)
        content->grabKeyboardFocus();

    return true;
}

} // namespace quillon::ui_pro::overlays
