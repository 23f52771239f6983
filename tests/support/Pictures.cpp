#include "tests/support/Pictures.h"

#include <algorithm>
#include <cstdlib>

namespace kestreleq::test
{
namespace
{

constexpr int antialiasing = 8;   // of 255, by which one pixel may differ
constexpr int fewestForAMark = 6; // pixels: less than the smallest stroke of a control

juce::File pictureFile (const juce::String& folder, const juce::String& name)
{
    return juce::File (folder).getChildFile (name + ".png");
}

bool writePng (const juce::Image& picture, const juce::File& file)
{
    file.getParentDirectory().createDirectory();
    file.deleteFile();
    const auto stream = file.createOutputStream();
    return stream != nullptr && juce::PNGImageFormat().writeImageToStream (picture, *stream);
}

} // namespace

juce::Image paintPicture (juce::Component& component, float scale)
{
    const auto pixels = [scale] (int length) { return juce::roundToInt (static_cast<float> (length) * scale); };
    juce::Image picture (juce::Image::ARGB, pixels (component.getWidth()), pixels (component.getHeight()), true,
        juce::SoftwareImageType());
    juce::Graphics g (picture);
    g.addTransform (juce::AffineTransform::scale (scale));
    component.paintEntireComponent (g, true);
    return picture;
}

int countDifferentPixels (const juce::Image& a, const juce::Image& b, int tolerance)
{
    if (a.getBounds() != b.getBounds())
        return std::max (a.getWidth() * a.getHeight(), b.getWidth() * b.getHeight());

    int count = 0;

    for (int y = 0; y < a.getHeight(); ++y)
    {
        for (int x = 0; x < a.getWidth(); ++x)
        {
            const auto p = a.getPixelAt (x, y);
            const auto q = b.getPixelAt (x, y);
            const auto differ = [tolerance] (int first, int second) { return std::abs (first - second) > tolerance; };
            count += differ (p.getRed(), q.getRed()) || differ (p.getGreen(), q.getGreen()) ||
                differ (p.getBlue(), q.getBlue()) || differ (p.getAlpha(), q.getAlpha());
        }
    }

    return count;
}

bool looksLike (const juce::Image& a, const juce::Image& b)
{
    return countDifferentPixels (a, b, antialiasing) < fewestForAMark;
}

testing::AssertionResult looksAsStored (juce::Component& component, const juce::String& name)
{
    const auto picture = paintPicture (component);
    const auto stored = pictureFile (juce::String (KESTREL_TEST_DATA) + "/pictures", name);

    if (std::getenv ("KESTREL_STORE_PICTURES") != nullptr)
        return writePng (picture, stored) ? testing::AssertionSuccess()
                                          : testing::AssertionFailure() << "cannot store " << stored.getFullPathName();

    const auto expected = juce::PNGImageFormat::loadFrom (stored);

    if (! expected.isValid())
        return testing::AssertionFailure() << "no picture " << stored.getFullPathName();

    const auto different = countDifferentPixels (picture, expected, antialiasing);

    if (different < fewestForAMark)
        return testing::AssertionSuccess();

    const auto shown =
        pictureFile (juce::File::getSpecialLocation (juce::File::tempDirectory).getFullPathName(), "failed-" + name);
    writePng (picture, shown);
    return testing::AssertionFailure() << different << " pixels of " << name << " differ; see "
                                       << shown.getFullPathName();
}

} // namespace kestreleq::test
