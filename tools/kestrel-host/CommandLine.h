#pragma once

#include "tools/kestrel-host/Commands.h"

#include <span>
#include <string_view>
#include <variant>

namespace kestreleq::host
{

struct HelpRequest
{
};

using Command = std::variant<HelpRequest, InfoOptions, RenderOptions, BenchOptions, OpenOptions>;

/** Reads the arguments that follow the program's name. Throws UsageError, or Failure for a parameter value that is not
    a number within 0 to 1. */
Command parseCommandLine (std::span<const std::string_view> arguments);

/** How the program is called; ends with a line break. */
std::string_view usageText();

} // namespace kestreleq::host
