#include "tools/kestrel-shot/ShotOptions.h"

#include <charconv>

namespace kestreleq::shot
{
namespace
{

float parseScale (const std::string& text)
{
    float scale = 0.0f;
    const auto* const end = text.data() + text.size();
    const auto result = std::from_chars (text.data(), end, scale);

    if (result.ec != std::errc() || result.ptr != end || ! (scale >= 0.25f && scale <= 4.0f))
        throw UsageError ("--scale needs a number from 0.25 to 4, not '" + text + "'");

    return scale;
}

} // namespace

ShotOptions parseOptions (const std::vector<std::string>& arguments)
{
    ShotOptions options;

    for (std::size_t i = 0; i < arguments.size(); ++i)
    {
        const auto& argument = arguments[i];
        const auto next = [&]() -> const std::string&
        {
            if (++i == arguments.size())
                throw UsageError (argument + " needs a value");

            return arguments[i];
        };

        if (argument == "--gallery")
            options.gallery = true;
        else if (argument == "--scale")
            options.scale = parseScale (next());
        else if (argument.starts_with ('-'))
            throw UsageError ("unknown option '" + argument + "'");
        else if (! options.output.empty())
            throw UsageError ("unexpected argument '" + argument + "'");
        else
            options.output = argument;
    }

    if (options.output.empty())
        throw UsageError ("OUT.png is missing");

    if (! options.gallery)
        throw UsageError ("--gallery is missing");

    return options;
}

std::string_view usageText()
{
    return "usage: kestrel-shot --gallery OUT.png [--scale S]\n"
           "\n"
           "Draws every control of the library in its states; a scale is 0.25 to 4.\n";
}

} // namespace kestreleq::shot
