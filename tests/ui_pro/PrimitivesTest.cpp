#include "tests/support/Pictures.h"
#include "tests/support/Window.h"

#include "ui_pro/controls/buttons/LinkIconButton.h"
#include "ui_pro/layout/HeaderBar.h"
#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/style/Theme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;

TEST (LinkIcon, ItsLinksJoinOrLieApartAtHalfSizeToo)
{
    controls::LinkIconButton button (style::Theme::accent (5));
    button.setSize (32, 24);

    for (const auto scale : { 0.5f, 1.0f, 2.0f })
    {
        // The least ink in the middle, as a share of that of a link.
        const auto joint = [&] (bool on)
        {
            button.setToggleState (on, juce::dontSendNotification);
            const auto picture = paintPicture (button, scale);
            const auto ink = [&] (int x)
            {
                auto most = 0.0f;
                for (int y = juce::roundToInt (6.0f * scale); y < juce::roundToInt (18.0f * scale); ++y)
                    most = std::max (most,
                        std::abs (picture.getPixelAt (x, y).getBrightness() -
                            picture.getPixelAt (juce::roundToInt (4.0f * scale), y).getBrightness()));
                return most;
            };
            auto middle = 1.0f;
            for (int x = juce::roundToInt (15.0f * scale); x < juce::roundToInt (18.0f * scale); ++x)
                middle = std::min (middle, ink (x));
            return middle / ink (static_cast<int> (10.5f * scale));
        };
        EXPECT_LT (joint (false), 0.75f) << scale;
        EXPECT_GT (joint (true), 0.95f) << scale;
    }
}

/** Draws a one-pixel frame and a dot, whose blur would show. */
struct Layered final : juce::Component
{
    void paint (juce::Graphics& g) override
    {
        if (cached)
            layer.draw (g, *this, [this] (juce::Graphics& picture) { draw (picture); });
        else
            draw (g);
    }

    void draw (juce::Graphics& g)
    {
        ++drawn;
        g.setColour (juce::Colours::white);
        g.drawRect (getLocalBounds(), 1);
        g.fillEllipse (3.0f, 4.0f, 5.0f, 5.0f);
    }

    primitives::CachedLayer layer;
    bool cached = true;
    int drawn = 0;
};

TEST (CachedLayer, LooksLikeTheDrawingAtEveryScaleAndIsDrawnOnce)
{
    juce::Component window;
    window.setSize (60, 60);
    Layered layered;
    layered.setBounds (7, 5, 31, 21);
    window.addAndMakeVisible (layered);

    for (const auto scale : { 0.5f, 1.0f, 1.25f, 2.0f })
    {
        layered.cached = true;
        layered.drawn = 0;
        paintPicture (window, scale);
        const auto throughLayer = paintPicture (window, scale);
        EXPECT_EQ (layered.drawn, 1) << scale;

        layered.cached = false;
        EXPECT_EQ (countDifferentPixels (throughLayer, paintPicture (window, scale), 8), 0) << scale;
    }
}

TEST (CachedLayer, TakesNoMemoryWhileNothingShowsIt)
{
    const auto before = primitives::CachedLayer::getBytesOfAll();
    const auto held = [before] { return primitives::CachedLayer::getBytesOfAll() - before; };
    Window window (60, 60);
    juce::Component part;
    part.setBounds (window.getLocalBounds());
    window.addAndMakeVisible (part);
    auto layered = std::make_unique<Layered>();
    layered->setBounds (7, 5, 31, 21);
    part.addAndMakeVisible (*layered);

    const std::vector<std::function<void()>> hide { [&] { layered->setVisible (false); },
        [&] { part.setVisible (false); }, [&] { window.removeChildComponent (&part); }, [&] { layered.reset(); } };

    for (const auto& act : hide)
    {
        window.addAndMakeVisible (part);
        layered->setVisible (true);
        paintPicture (window, 2.0f);
        EXPECT_EQ (held(), 4u * 62u * 42u);
        act();
        EXPECT_EQ (held(), 0u);
    }
}

TEST (HeaderBar, ShowsItsTexts)
{
    layout::HeaderBar bar;
    bar.setSize (1672, 68);

    for (const auto set : { &layout::HeaderBar::setProductName, &layout::HeaderBar::setVersionText,
             &layout::HeaderBar::setSubtitle, &layout::HeaderBar::setPresetName })
    {
        const auto before = paintPicture (bar);
        (bar.*set) ("something else");
        EXPECT_GT (countDifferentPixels (before, paintPicture (bar), 16), 50);
    }
}

} // namespace
} // namespace kestreleq::test
