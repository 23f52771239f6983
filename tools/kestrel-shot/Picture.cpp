#include "tools/kestrel-shot/Picture.h"

#include "tools/kestrel-host/Paths.h"

#include <stdexcept>

namespace kestreleq::shot
{

juce::Image paintPicture (juce::Component& component, float scale)
{
    const auto pixels = [scale] (int length)
    { return std::max (1, juce::roundToInt (static_cast<float> (length) * scale)); };
    juce::Image picture (juce::Image::ARGB, pixels (component.getWidth()), pixels (component.getHeight()), true,
        juce::SoftwareImageType());
    juce::Graphics g (picture);
    g.addTransform (juce::AffineTransform::scale (scale));
    component.paintEntireComponent (g, true);
    return picture;
}

void writePng (const juce::Image& picture, const std::string& path)
{
    const auto file = host::fileAt (path);
    juce::TemporaryFile temporary (file);
    bool written = false;

    if (const auto stream = temporary.getFile().createOutputStream())
    {
        written = juce::PNGImageFormat().writeImageToStream (picture, *stream);
        stream->flush();
        written = written && stream->getStatus().wasOk();
    }

    if (! written || ! temporary.overwriteTargetFileWithTemporary())
        throw std::runtime_error ("cannot write '" + path + "'");
}

} // namespace kestreleq::shot
