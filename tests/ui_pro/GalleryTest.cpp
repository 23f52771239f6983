#include "tools/kestrel-shot/gallery/Gallery.h"

#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

class Gallery : public testing::TestWithParam<shot::GalleryPage>
{
};

/** Every control of a family in every state, none of which the comparison would not miss. */
TEST_P (Gallery, LooksAsStored)
{
    shot::GallerySheet sheet;
    GetParam().add (sheet);
    EXPECT_TRUE (looksAsStored (sheet, juce::String ("gallery-") + GetParam().name));

    const auto whole = paintPicture (sheet);
    for (auto* child : sheet.getChildren())
        child->setVisible (false);
    const auto without = paintPicture (sheet);

    for (const auto* child : sheet.getChildren())
    {
        const auto area = child->getBounds();
        EXPECT_FALSE (looksLike (whole.getClippedImage (area), without.getClippedImage (area))) << area.toString();
    }
}

INSTANTIATE_TEST_SUITE_P (Pages, Gallery, testing::ValuesIn (shot::galleryPages),
    [] (const auto& page) { return juce::String (page.param.name).removeCharacters ("-").toStdString(); });

} // namespace
} // namespace kestreleq::test
