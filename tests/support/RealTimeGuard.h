#pragma once

namespace kestreleq::test
{

/** Of this thread. */
struct RealTimeCounters
{
    bool armed;
    int allocations, locks, systemCalls;
    long pageFaults; // before the guard
};

inline thread_local RealTimeCounters counters;

/** Counts what a real-time thread must not do. While one of these lives, every call on this thread that allocates,
    frees, locks or waits is counted; the process's own functions stand in front of the C library's. The kernel reports
    the first system call. Linux only. */
class RealTimeGuard
{
public:
    RealTimeGuard();
    ~RealTimeGuard();

    RealTimeGuard (const RealTimeGuard&) = delete;
    RealTimeGuard& operator= (const RealTimeGuard&) = delete;

    int allocations() const { return counters.allocations; }

    int locks() const { return counters.locks; }

    /** 0 or 1: what comes after the first goes by unseen. */
    int systemCalls() const { return counters.systemCalls; }

    /** Pages that this thread had to be given or that had to be read in. Ends the watch for system calls. */
    int pageFaults() const;
};

/** Has the kernel map all code and constants of the process and 128 KiB of this thread's stack, as in a host that has
    run for a while. What faults from then on is data. */
void mapProgramAndStack();

/** False under a sanitizer, which needs those functions for itself. */
bool canGuardRealTime();

/** False on a kernel or processor that cannot hand a thread's system calls back to it. */
bool canWatchSystemCalls();

} // namespace kestreleq::test
