#include "tools/kestrel-shot/Picture.h"
#include "tools/kestrel-shot/ShotOptions.h"
#include "tools/kestrel-shot/gallery/Gallery.h"

#include <exception>
#include <iostream>

int main (int argc, char* argv[])
{
    using namespace kestreleq::shot;

    try
    {
        const auto options = parseOptions ({ argv + std::min (argc, 1), argv + argc });
        const juce::ScopedJuceInitialiser_GUI framework;
        writePng (paintPicture (*makeGallery(), options.scale), options.output);
        return 0;
    }
    catch (const UsageError& error)
    {
        std::cerr << "kestrel-shot: " << error.what() << '\n' << usageText();
        return 2;
    }
    catch (const std::exception& error)
    {
        std::cerr << "kestrel-shot: " << error.what() << '\n';
        return 1;
    }
}
