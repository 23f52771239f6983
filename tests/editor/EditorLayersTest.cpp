#include "tests/support/EditorRig.h"
#include "tests/support/Pictures.h"

#include "ui_pro/primitives/CachedLayer.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

using quillon::ui_pro::primitives::CachedLayer;

TEST (EditorLayers, AreKeptOnlyOfWhatShows)
{
    const auto before = CachedLayer::getBytesOfAll();
    EditorRig rig;
    const auto heldAt = [&] (float scale)
    {
        paintPicture (rig.window, scale);
        return CachedLayer::getBytesOfAll() - before;
    };
    const auto pixels = static_cast<std::size_t> (rig.editor->getWidth() * rig.editor->getHeight());
    const auto finish = [&]
    {
        rig.now += 500.0;
        rig.editor->getOverlay().advance();
    };

    for (const auto scale : { 2.0f, 4.0f }) // of the smallest window: the editor's 1 and 2
    {
        const auto linked = heldAt (scale);
        const auto ofWindow = 4u * pixels * static_cast<std::size_t> (scale * scale);
        EXPECT_GT (linked, ofWindow);
        EXPECT_LT (linked, ofWindow * 11 / 4);

        rig.editor->openSupport();
        finish();
        EXPECT_GT (heldAt (scale), linked + ofWindow / 8);
        rig.editor->getOverlay().close();
        finish();
        EXPECT_EQ (heldAt (scale), linked) << "the sheet is closed";

        rig.editor->getHeader().getPresetSelector().openBrowser();
        EXPECT_GT (heldAt (scale), linked + ofWindow / 8);
        rig.editor->getHeader().getPresetSelector().closeBrowser();
        EXPECT_EQ (heldAt (scale), linked) << "the browser is closed";

        rig.set ("link", 0.0f);
        rig.tick();
        EXPECT_LT (heldAt (scale), ofWindow * 11 / 4) << "both lanes";
        rig.set ("link", 1.0f);
        rig.tick();
        EXPECT_EQ (heldAt (scale), linked) << "lane B is hidden";
    }

    rig.editor.reset();
    EXPECT_EQ (CachedLayer::getBytesOfAll(), before);
}

} // namespace
} // namespace kestreleq::test
