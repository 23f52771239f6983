#pragma once

#include "tools/kestrel-host/Commands.h"

#include <string>
#include <string_view>

namespace kestreleq::host
{

/** The text as a message quotes it. */
std::string inQuotes (std::string_view text);

/** The whole number that an option was given, which must lie within the closed range. Throws UsageError. */
int integerFor (std::string_view option, std::string_view text, int lowest, int highest);

/** The number that an option was given, which must lie within the closed range. Throws UsageError. */
double numberFor (std::string_view option, std::string_view text, double lowest, double highest);

/** Reads `ID=VALUE`. Throws UsageError for another form, Failure for a value that is not a number within 0 to 1. */
Assignment parseAssignment (std::string_view text);

/** Reads `SECONDS:ID=VALUE`; the time is 0 or more. Throws as parseAssignment does. */
TimedAssignment parseTimedAssignment (std::string_view text);

} // namespace kestreleq::host
