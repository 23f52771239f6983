#include "tools/kestrel-host/Console.h"

#include <algorithm>

#ifdef _WIN32
#include <juce_events/juce_events.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#endif

namespace kestreleq::host
{

#ifdef _WIN32

Console::Console()
    : savedCodePage (GetConsoleOutputCP())
{
    SetConsoleOutputCP (CP_UTF8);
    _setmode (_fileno (stdout), _O_BINARY);
    _setmode (_fileno (stderr), _O_BINARY);
    // A console gets what is not buffered byte by byte, and shows no letter of which it does not get all bytes at once.
    std::setvbuf (stdout, nullptr, _IOFBF, 1 << 16);
    std::setvbuf (stderr, nullptr, _IOFBF, 1 << 12);
}

Console::~Console()
{
    SetConsoleOutputCP (savedCodePage);
}

// The narrow arguments are in the machine's code page, which has no letter for most of what a path may hold.
std::vector<std::string> Console::arguments (int, char*[])
{
    std::vector<std::string> all;

    for (const auto& argument : juce::JUCEApplicationBase::getCommandLineParameterArray())
        all.push_back (argument.toStdString());

    return all;
}

#else

Console::Console() = default;
Console::~Console() = default;

std::vector<std::string> Console::arguments (int argc, char* argv[])
{
    return { argv + std::min (argc, 1), argv + argc };
}

#endif

} // namespace kestreleq::host
