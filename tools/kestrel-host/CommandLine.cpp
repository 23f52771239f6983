#include "tools/kestrel-host/CommandLine.h"

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/OptionValues.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace kestreleq::host
{
namespace
{

constexpr int largestBlock = 65536;

using Arguments = std::span<const std::string_view>;

/** Fetches the value of the option that is being read. */
using NextValue = std::function<std::string_view()>;

/** Reads one option; false if the command has no such option. */
using ReadOption = std::function<bool (std::string_view option, const NextValue& next)>;

/** Splits a command's arguments into options, which `readOption` takes, and paths, which must be as many as `names`. */
std::vector<std::string> readArguments (
    Arguments arguments, std::initializer_list<std::string_view> names, const ReadOption& readOption)
{
    std::vector<std::string> paths;

    for (std::size_t i = 0; i < arguments.size(); ++i)
    {
        const auto argument = arguments[i];

        if (! argument.starts_with ('-'))
        {
            paths.emplace_back (argument);
            continue;
        }

        const auto next = [&]
        {
            if (++i == arguments.size())
                throw UsageError (std::string (argument) + " needs a value");

            return arguments[i];
        };

        if (! readOption (argument, next))
            throw UsageError ("unknown option " + inQuotes (argument));
    }

    if (paths.size() < names.size())
        throw UsageError (std::string (*(names.begin() + paths.size())) + " is missing");

    if (paths.size() > names.size())
        throw UsageError ("unexpected argument " + inQuotes (paths[names.size()]));

    if (std::any_of (paths.begin(), paths.end(), [] (const auto& path) { return path.empty(); }))
        throw UsageError ("a path is empty");

    return paths;
}

InfoOptions parseInfo (Arguments arguments)
{
    InfoOptions options;
    const auto readOption = [&] (std::string_view option, const NextValue&)
    {
        options.texts = options.texts || option == "--texts";
        options.json = options.json || option == "--json" || options.texts;
        return option == "--json" || option == "--texts";
    };

    options.module = readArguments (arguments, { "MODULE" }, readOption)[0];
    return options;
}

RenderOptions parseRender (Arguments arguments)
{
    RenderOptions options;
    const auto readOption = [&] (std::string_view option, const NextValue& next)
    {
        if (option == "--block")
            options.block = integerFor (option, next(), 1, largestBlock);
        else if (option == "--program")
            options.program = integerFor (option, next(), -1000000, 1000000); // the module knows how many there are
        else if (option == "--set")
            options.sets.push_back (parseAssignment (next()));
        else if (option == "--at")
            options.timed.push_back (parseTimedAssignment (next()));
        else if (option == "--state")
            options.state = next();
        else if (option == "--save-state")
            options.saveState = next();
        else
            return false;

        return true;
    };

    auto paths = readArguments (arguments, { "MODULE", "IN.wav", "OUT.wav" }, readOption);
    options.module = std::move (paths[0]);
    options.input = std::move (paths[1]);
    options.output = std::move (paths[2]);
    return options;
}

BenchOptions parseBench (Arguments arguments)
{
    BenchOptions options;
    const auto readOption = [&] (std::string_view option, const NextValue& next)
    {
        if (option == "--rate")
            options.rate = numberFor (option, next(), 8000.0, 768000.0);
        else if (option == "--block")
            options.block = integerFor (option, next(), 1, largestBlock);
        else if (option == "--seconds")
            options.seconds = numberFor (option, next(), 0.01, 3600.0);
        else if (option == "--set")
            options.sets.push_back (parseAssignment (next()));
        else if (option == "--json")
            options.json = true;
        else
            return false;

        return true;
    };

    options.module = readArguments (arguments, { "MODULE" }, readOption)[0];
    return options;
}

OpenOptions parseOpen (Arguments arguments)
{
    OpenOptions options;
    const auto readOption = [&] (std::string_view option, const NextValue& next)
    {
        if (option == "--seconds")
            options.seconds = numberFor (option, next(), 0.0, 86400.0);
        else if (option == "--state")
            options.state = next();
        else if (option == "--save-state")
            options.saveState = next();
        else
            return false;

        return true;
    };

    options.module = readArguments (arguments, { "MODULE" }, readOption)[0];
    return options;
}

} // namespace

Command parseCommandLine (Arguments arguments)
{
    const auto isHelp = [] (std::string_view argument) { return argument == "--help" || argument == "-h"; };

    if (std::any_of (arguments.begin(), arguments.end(), isHelp))
        return HelpRequest {};

    if (arguments.empty())
        throw UsageError ("no command");

    const auto command = arguments.front();
    const auto rest = arguments.subspan (1);

    if (command == "info")
        return parseInfo (rest);

    if (command == "render")
        return parseRender (rest);

    if (command == "bench")
        return parseBench (rest);

    if (command == "open")
        return parseOpen (rest);

    throw UsageError ("unknown command " + inQuotes (command));
}

std::string_view usageText()
{
    return R"(usage: kestrel-host info   MODULE [--json] [--texts]
       kestrel-host render MODULE IN.wav OUT.wav [--block N] [--program N]
                           [--set ID=VALUE]... [--at SECONDS:ID=VALUE]...
                           [--state FILE] [--save-state FILE]
       kestrel-host bench  MODULE [--rate R] [--block N] [--seconds S] [--set ID=VALUE]... [--json]
       kestrel-host open   MODULE [--seconds S] [--state FILE] [--save-state FILE]
       kestrel-host --help

MODULE is a built VST3 module, ID a parameter ID of the plug-in ('info' lists them), VALUE 0 to 1.
'info --texts' is JSON with every parameter's text in hundredths of its range.
--program selects a factory program, counted from 0; --set then acts in the order given, before the first block;
--at acts at the first block that starts at or after its time. --state restores a saved state before all of these,
--save-state saves the state at the end. A block has 1 to 65536 samples (512 unless told
otherwise), a bench a rate of 8000 to 768000 Hz and 0.01 to 3600 seconds of audio. 'open' shows the
plug-in's editor in a window until that is closed, or for S seconds.
)";
}

} // namespace kestreleq::host
