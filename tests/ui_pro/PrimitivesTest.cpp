#include "tests/support/Pictures.h"

#include "ui_pro/layout/HeaderBar.h"
#include "ui_pro/primitives/CachedLayer.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using namespace quillon::ui_pro;

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
