#pragma once

namespace kestreleq::test
{

/** Counts what a real-time thread must not do. While one of these lives, every call on this thread that allocates,
    frees, locks or waits is counted; the process's own functions stand in front of the C library's. Linux only. */
class RealTimeGuard
{
public:
    RealTimeGuard();
    ~RealTimeGuard();

    RealTimeGuard (const RealTimeGuard&) = delete;
    RealTimeGuard& operator= (const RealTimeGuard&) = delete;

    int allocations() const;
    int locks() const;
};

/** False under a sanitizer, which needs those functions for itself. */
bool canGuardRealTime();

} // namespace kestreleq::test
