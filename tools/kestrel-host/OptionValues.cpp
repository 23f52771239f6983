#include "tools/kestrel-host/OptionValues.h"

#include "tools/kestrel-host/Errors.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace kestreleq::host
{
namespace
{

/** A number that fills the whole text and is finite. */
template <typename Number>
std::optional<Number> parseNumber (std::string_view text)
{
    Number number {};
    const auto* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars (text.data(), end, number);

    if (error != std::errc() || stop != end || ! std::isfinite (static_cast<double> (number)))
        return std::nullopt;

    return number;
}

template <typename Number>
Number parseWithin (std::string_view option, std::string_view text, Number lowest, Number highest)
{
    const auto number = parseNumber<Number> (text);

    if (! number || *number < lowest || *number > highest)
        throw UsageError (inQuotes (text) + " is not a valid value for " + std::string (option));

    return *number;
}

} // namespace

std::string inQuotes (std::string_view text)
{
    std::string quotation (1, '\'');
    quotation += text;
    quotation += '\'';
    return quotation;
}

int integerFor (std::string_view option, std::string_view text, int lowest, int highest)
{
    return parseWithin (option, text, lowest, highest);
}

double numberFor (std::string_view option, std::string_view text, double lowest, double highest)
{
    return parseWithin (option, text, lowest, highest);
}

Assignment parseAssignment (std::string_view text)
{
    const auto equals = text.find ('=');

    if (equals == 0 || equals == std::string_view::npos)
        throw UsageError (inQuotes (text) + " is not ID=VALUE");

    const auto valueText = text.substr (equals + 1);
    const auto value = parseNumber<double> (valueText);

    if (! value || *value < 0.0 || *value > 1.0)
        throw Failure (inQuotes (valueText) + " in " + inQuotes (text) + " is not a value within 0..1");

    return { std::string (text.substr (0, equals)), static_cast<float> (*value) };
}

TimedAssignment parseTimedAssignment (std::string_view text)
{
    const auto colon = text.find (':');

    if (colon == std::string_view::npos)
        throw UsageError (inQuotes (text) + " is not SECONDS:ID=VALUE");

    const auto seconds = parseNumber<double> (text.substr (0, colon));

    if (! seconds || *seconds < 0.0)
        throw UsageError (inQuotes (text.substr (0, colon)) + " in " + inQuotes (text) + " is not a time in seconds");

    return { *seconds, parseAssignment (text.substr (colon + 1)) };
}

} // namespace kestreleq::host
