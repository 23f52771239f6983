#include "tools/kestrel-host/Console.h"
#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-shot/EditorShot.h"
#include "tools/kestrel-shot/Picture.h"
#include "tools/kestrel-shot/ShotOptions.h"
#include "tools/kestrel-shot/gallery/Gallery.h"

#include <exception>
#include <iostream>

int main (int argc, char* argv[])
{
    using namespace kestreleq;
    const host::Console console;

    try
    {
        const auto arguments = host::Console::arguments (argc, argv);
        const auto options = shot::parseOptions (std::vector<std::string_view> (arguments.begin(), arguments.end()));
        const juce::ScopedJuceInitialiser_GUI framework;

        if (options.places)
        {
            shot::listEditorPlaces (options, std::cout);
            return 0;
        }

        const auto picture =
            options.gallery ? shot::paintPicture (*shot::makeGallery(), options.scale) : shot::shootEditor (options);
        shot::writePng (picture, options.output);
        return 0;
    }
    catch (const host::UsageError& error)
    {
        std::cerr << "kestrel-shot: " << error.what() << '\n' << shot::usageText();
        return 2;
    }
    catch (const std::exception& error)
    {
        std::cerr << "kestrel-shot: " << error.what() << '\n';
        return 1;
    }
}
