#pragma once

#include <chrono>
#include <cstdint>

namespace kestreleq::host
{

/** A percentage on standard error, if that is a terminal and the work takes longer than a moment. It takes itself away
    again at the end, so that a message that follows has its line for itself. */
class Progress
{
public:
    Progress();
    ~Progress();

    Progress (const Progress&) = delete;
    Progress& operator= (const Progress&) = delete;

    void show (std::int64_t done, std::int64_t total);

private:
    std::chrono::steady_clock::time_point due;
    bool isTerminal;
    bool isShown = false;
};

} // namespace kestreleq::host
