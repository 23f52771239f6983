#pragma once

#include "ui_pro/primitives/KeyboardLoan.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace quillon::ui_pro::overlays
{

/** A modal side sheet: covers its parent, dims it, and slides one component in from the right edge. A press on the
    dimmed area or the Escape key slides it out again. The content takes the overlay's whole area; one that is drawn
    smaller lets the presses beside it through with its hit test. While it is visible it has the keyboard, which the Tab
    key keeps in the content, and gives it back to whom it was taken from; its owner keeps everything else from voice
   and shortcuts. Owns no content. Message thread. */
class SlideInOverlay final : public primitives::SilentComponent, private juce::Timer, private juce::KeyListener
{
public:
    SlideInOverlay();
    ~SlideInOverlay() override;

    /** Slides a component in; whatever else is shown slides out first. Does nothing for null and for what is shown or
        opening already. */
    void show (juce::Component* component);

    /** Slides the content out, from wherever it has got to, and forgets what waits. */
    void close();

    /** Moves a running animation to where the clock has got to, as its timer does. */
    void advance();

    /** 0 is hidden, 1 fully shown. */
    float getProgress() const { return progress; }

    bool isAnimating() const { return animating; }

    juce::Component* getContent() const { return content.getComponent(); }

    /** Runs with the content when it has slid in. */
    std::function<void (juce::Component*)> onOpened;

    /** Runs when the sheet has begun to cover its parent, and when it has left it. */
    std::function<void()> onCoverChanged;

    /** The time in milliseconds. */
    std::function<double()> clock = [] { return juce::Time::getMillisecondCounterHiRes(); };

    void paint (juce::Graphics& g) override;
    void resized() override;
    void visibilityChanged() override;
    void mouseDown (const juce::MouseEvent& event) override;

private:
    /** Takes the dimmed sheet away when its content is deleted elsewhere. */
    struct DeletionWatcher final : juce::ComponentListener
    {
        explicit DeletionWatcher (SlideInOverlay& overlay)
            : owner (overlay)
        {
        }

        void componentBeingDeleted (juce::Component&) override { owner.contentDeleted(); }

        SlideInOverlay& owner;
    };

    void timerCallback() override { advance(); }

    using Component::keyPressed;
    bool keyPressed (const juce::KeyPress& key, juce::Component* origin) override;

    void slideOut();
    void startAnimation (bool shouldOpen);
    void finishOpening();
    void finishClosing();
    void placeContent();
    void setContent (juce::Component* component);
    void contentDeleted();

    juce::Component::SafePointer<juce::Component> content;
    juce::Component::SafePointer<juce::Component> pendingContent;
    float progress = 0.0f;
    bool animating = false;
    bool opening = false;
    double animationStartMs = 0.0;
    float startProgress = 0.0f;
    DeletionWatcher watcher { *this };
    primitives::KeyboardLoan keyboard;
};

} // namespace quillon::ui_pro::overlays
