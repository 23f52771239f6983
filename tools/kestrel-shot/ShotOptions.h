#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kestreleq::shot
{

/** The command line is wrong: the exit code is 2, and the usage follows the text. */
struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct ShotOptions
{
    bool gallery = false;
    std::string output;
    float scale = 1.0f; // pixels per design pixel
};

/** Reads the arguments that follow the program's name. Throws UsageError. */
ShotOptions parseOptions (const std::vector<std::string>& arguments);

std::string_view usageText();

} // namespace kestreleq::shot
