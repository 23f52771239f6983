#pragma once

#include <string>
#include <vector>

namespace kestreleq::host
{

/** While it lives, the program's output is UTF-8 with plain line ends on every system, and so are its arguments. */
class Console
{
public:
    Console();
    ~Console();

    Console (const Console&) = delete;
    Console& operator= (const Console&) = delete;

    /** What follows the program's name on the command line. */
    static std::vector<std::string> arguments (int argc, char* argv[]);

private:
    [[maybe_unused]] unsigned savedCodePage = 0;
};

} // namespace kestreleq::host
