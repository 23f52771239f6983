#pragma once

#include <stdexcept>

namespace kestreleq::host
{

/** The job cannot be done: its text is the one line for standard error, and the exit code is 1. */
struct Failure : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/** The command line is wrong: the exit code is 2, and the usage follows the text. */
struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

} // namespace kestreleq::host
