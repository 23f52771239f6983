#include "tools/kestrel-shot/ShotOptions.h"

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/OptionValues.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kestreleq::shot
{
namespace
{

using host::UsageError;

constexpr std::array<std::pair<std::string_view, OpenPart>, 5> openParts { {
    { "presets", OpenPart::presets },
    { "menu", OpenPart::menu },
    { "support", OpenPart::support },
    { "oversampling", OpenPart::oversampling },
    { "field", OpenPart::field },
} };

OpenPart parseOpenPart (std::string_view text)
{
    for (const auto& [name, part] : openParts)
        if (text == name)
            return part;

    throw UsageError ("--open needs presets, menu, support, oversampling or field, not " + host::inQuotes (text));
}

bool parseRenderer (std::string_view text)
{
    if (text != "native" && text != "software")
        throw UsageError ("--renderer needs software or native, not " + host::inQuotes (text));

    return text == "native";
}

std::pair<double, double> parsePlace (std::string_view option, std::string_view text)
{
    const auto comma = std::min (text.find (','), text.size());
    return { host::numberFor (option, text.substr (0, comma), 0.0, 1672.0),
        host::numberFor (option, text.substr (std::min (comma + 1, text.size())), 0.0, 858.0) };
}

} // namespace

ShotOptions parseOptions (std::span<const std::string_view> arguments)
{
    ShotOptions options;

    for (std::size_t i = 0; i < arguments.size(); ++i)
    {
        const auto argument = arguments[i];
        const auto next = [&]
        {
            if (++i == arguments.size())
                throw UsageError (std::string (argument) + " needs a value");

            return arguments[i];
        };

        if (argument == "--gallery")
            options.gallery = true;
        else if (argument == "--places")
            options.places = true;
        else if (argument == "--scale")
            options.scale = static_cast<float> (host::numberFor (argument, next(), 0.5, 2.0));
        else if (argument == "--program")
            options.program = host::integerFor (argument, next(), 0, 5);
        else if (argument == "--set")
            options.sets.push_back (host::parseAssignment (next()));
        else if (argument == "--audio")
            options.audio = next();
        else if (argument == "--open")
            options.open = parseOpenPart (next());
        else if (argument == "--pointer")
            options.pointer = parsePlace (argument, next());
        else if (argument == "--renderer")
            options.nativeRenderer = parseRenderer (next());
        else if (argument == "--paints")
            options.paints = host::integerFor (argument, next(), 1, 1000);
        else if (argument.starts_with ('-'))
            throw UsageError ("unknown option " + host::inQuotes (argument));
        else if (! options.output.empty())
            throw UsageError ("unexpected argument " + host::inQuotes (argument));
        else
            options.output = argument;
    }

    if (options.places && (options.gallery || ! options.output.empty()))
        throw UsageError ("--places draws nothing");

    if (! options.places && options.output.empty())
        throw UsageError ("OUT.png is missing");

    if (options.gallery &&
        (options.program || ! options.sets.empty() || options.audio || options.pointer || options.nativeRenderer ||
            options.paints != 1 || options.open != OpenPart::nothing))
        throw UsageError ("--gallery goes with --scale only");

    return options;
}

std::string_view usageText()
{
    return R"(usage: kestrel-shot OUT.png [--scale S] [--program N] [--set ID=VALUE]... [--audio IN.wav]
                    [--open presets|menu|support|oversampling|field] [--pointer X,Y] [--renderer software|native]
                    [--paints N]
       kestrel-shot --gallery OUT.png [--scale S]
       kestrel-shot --places [--scale S] [--program N] [--set ID=VALUE]... [--open ...]

Draws the editor, or every control of the library in its states, without a window; with --places, prints where each named
control of the editor stands instead, as lines of x, y, width, height (pixels) and the name. A scale is 0.5 to 2, a program 0 to 5,
ID a parameter ID and VALUE 0 to 1. --set acts in the order given, after --program. With --audio the picture shows the
editor while the file's end plays. The field is where a node's value is typed. --pointer puts the mouse over a chart, at a
place of the 1672 x 858 design pixels. --renderer native paints with the system's own renderer where it has one (Direct2D on
Windows). --paints paints the whole picture so many times (1 to 1000); with --audio it paints it once, and then in each of the
last ticks what that tick changed.
)";
}

} // namespace kestreleq::shot
