#pragma once

#include "tools/kestrel-host/Commands.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestreleq::shot
{

/** What lies open in the picture. */
enum class OpenPart
{
    nothing,
    presets,
    menu,
    support,
    oversampling,
    field
};

struct ShotOptions
{
    bool gallery = false;
    bool places = false; // told instead of drawn
    std::string output;
    float scale = 1.0f; // pixels per design pixel

    // Of the editor.
    std::optional<int> program;
    std::vector<host::Assignment> sets;
    std::optional<std::string> audio; // a WAV file that plays
    OpenPart open = OpenPart::nothing;
    std::optional<std::pair<double, double>> pointer; // over a chart, in design pixels
    bool nativeRenderer = false;                      // the system's own instead of the framework's
    int paints = 1;                                   // while audio plays: of its last ticks
};

/** Reads the arguments that follow the program's name. Throws host::UsageError, or host::Failure for a parameter value
    that is not a number within 0 to 1. */
ShotOptions parseOptions (std::span<const std::string_view> arguments);

std::string_view usageText();

} // namespace kestreleq::shot
