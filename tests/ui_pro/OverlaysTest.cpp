#include "tests/support/MessagePump.h"
#include "tests/support/Pictures.h"
#include "tests/support/Window.h"

#include "ui_pro/overlays/SlideInOverlay.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;

class SlideInOverlayTest : public testing::Test
{
protected:
    SlideInOverlayTest()
    {
        overlay.clock = [this]
        {
            ++timeAsked;
            return now;
        };
        overlay.onOpened = [this] (juce::Component* content) { opened.push_back (content); };
        overlay.setBounds (window.getLocalBounds());
        window.addChildComponent (overlay);
    }

    /** Lets the time pass and one frame be drawn. */
    void advance (double milliseconds)
    {
        now += milliseconds;
        const auto before = timeAsked;
        ASSERT_TRUE (pumpMessagesUntil ([&] { return timeAsked > before; }, 2000)) << "no animation runs";
    }

    void open (juce::Component& content)
    {
        overlay.show (&content);
        advance (200);
    }

    double now = 1000.0;
    int timeAsked = 0;
    std::vector<juce::Component*> opened;
    Window window { 400, 200 };
    juce::Component first;
    juce::Component second;
    overlays::SlideInOverlay overlay;
};

TEST_F (SlideInOverlayTest, SlidesInFastThenSlowAndOutSlowThenFast)
{
    first.setWantsKeyboardFocus (true);
    overlay.show (&first);
    EXPECT_EQ (first.getBounds(), juce::Rectangle<int> (400, 0, 400, 200)); // just outside
    EXPECT_TRUE (overlay.hasKeyboardFocus (false));

    advance (100);
    EXPECT_FLOAT_EQ (overlay.getProgress(), 0.875f);
    EXPECT_EQ (first.getX(), 50);
    EXPECT_TRUE (opened.empty());

    advance (100);
    EXPECT_EQ (overlay.getProgress(), 1.0f);
    EXPECT_FALSE (overlay.isAnimating());
    EXPECT_EQ (first.getBounds(), overlay.getLocalBounds());
    EXPECT_EQ (opened, std::vector<juce::Component*> { &first });
    EXPECT_TRUE (first.hasKeyboardFocus (false));

    overlay.close();
    advance (80);
    EXPECT_FLOAT_EQ (overlay.getProgress(), 0.875f);
    advance (80);
    EXPECT_FALSE (overlay.isVisible());
    EXPECT_EQ (overlay.getContent(), nullptr);
}

TEST_F (SlideInOverlayTest, LendsItselfTheKeyboardThroughAChangeOfContent)
{
    juce::Component behind;
    behind.setWantsKeyboardFocus (true);
    window.addAndMakeVisible (behind);
    behind.grabKeyboardFocus();
    second.setWantsKeyboardFocus (true);

    open (first);
    overlay.show (&second);
    advance (160);
    EXPECT_TRUE (overlay.hasKeyboardFocus (false));
    EXPECT_TRUE (window.pressKey (juce::KeyPress (juce::KeyPress::tabKey)));
    EXPECT_TRUE (second.hasKeyboardFocus (false)) << "on its way in, too";
    advance (200);
    EXPECT_TRUE (second.hasKeyboardFocus (false));
    overlay.close();
    advance (160);
    EXPECT_TRUE (behind.hasKeyboardFocus (false));
}

TEST_F (SlideInOverlayTest, APressBesideTheContentClosesAndOneOnItDoesNot)
{
    overlay.show (&first);
    advance (100); // the content begins at 50
    window.click ({ 60, 100 });
    advance (10);
    EXPECT_GT (overlay.getProgress(), 0.875f);
    window.click ({ 20, 100 });
    advance (160);
    EXPECT_FALSE (overlay.isVisible());

    window.click ({ 20, 100 }); // hidden: takes no presses
    EXPECT_FALSE (overlay.isAnimating());
}

TEST_F (SlideInOverlayTest, DimsByItsProgressAndGoesWithItsContent)
{
    const auto alpha = [this] { return paintPicture (overlay).getPixelAt (5, 5).getAlpha(); };
    EXPECT_EQ (alpha(), 0);

    {
        juce::Component shortLived;
        open (shortLived);
        EXPECT_NEAR (alpha(), 0.55 * 255.0, 1.0);
    }

    EXPECT_FALSE (overlay.isVisible());
    EXPECT_EQ (alpha(), 0);
    open (first);
    EXPECT_EQ (overlay.getContent(), &first);
}

TEST (SlideInOverlay, MayBeDeletedByItsCallbackOrInItsAnimation)
{
    Window window (100, 100);
    juce::Component content;
    auto overlay = std::make_unique<overlays::SlideInOverlay>();
    overlay->clock = [time = 0.0]() mutable { return time += 150.0; };
    overlay->onOpened = [&] (juce::Component*) { overlay.reset(); };
    window.addAndMakeVisible (*overlay);
    overlay->show (&content);
    EXPECT_TRUE (pumpMessagesUntil ([&] { return overlay == nullptr; }, 2000));
    EXPECT_EQ (content.getParentComponent(), nullptr);

    overlay = std::make_unique<overlays::SlideInOverlay>();
    window.addAndMakeVisible (*overlay);
    overlay->show (&content);
    overlay.reset();
    EXPECT_EQ (content.getParentComponent(), nullptr);
}

} // namespace
} // namespace kestreleq::test
