#include "tools/kestrel-host/Progress.h"

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace kestreleq::host
{
namespace
{

constexpr std::chrono::milliseconds interval { 250 };

bool errorIsTerminal()
{
#ifdef _WIN32
    return _isatty (_fileno (stderr)) != 0;
#else
    return isatty (STDERR_FILENO) != 0;
#endif
}

} // namespace

Progress::Progress()
    : due (std::chrono::steady_clock::now() + interval),
      isTerminal (errorIsTerminal())
{
}

Progress::~Progress()
{
    if (isShown)
        std::fputs ("\r                \r", stderr);
}

void Progress::show (std::int64_t done, std::int64_t total)
{
    if (! isTerminal || std::chrono::steady_clock::now() < due)
        return;

    due = std::chrono::steady_clock::now() + interval;
    isShown = true;
    std::fprintf (stderr, "\rrendering %3d %%", static_cast<int> (done * 100 / total));
    std::fflush (stderr);
}

} // namespace kestreleq::host
