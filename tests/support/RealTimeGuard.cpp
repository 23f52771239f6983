#include "tests/support/RealTimeGuard.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <dlfcn.h>
#include <fstream>
#include <iterator>
#include <pthread.h>
#include <semaphore.h>
#include <sstream>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <time.h>
#include <ucontext.h>
#include <unistd.h>

namespace
{

using kestreleq::test::counters;

[[maybe_unused]] void countAllocation()
{
    counters.allocations += counters.armed ? 1 : 0;
}

/** Counts, then calls the C library's function of the same name. */
template <typename... Arguments>
[[maybe_unused]] int countLock (const char* name, Arguments... arguments)
{
    counters.locks += counters.armed ? 1 : 0;
    return reinterpret_cast<int (*) (Arguments...)> (dlsym (RTLD_NEXT, name)) (arguments...);
}

} // namespace

#if defined(__has_feature)
#define KESTREL_HAS_FEATURE(name) __has_feature (name)
#else
#define KESTREL_HAS_FEATURE(name) 0
#endif

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || KESTREL_HAS_FEATURE(realtime_sanitizer)
#define KESTREL_CAN_GUARD 0
#else
#define KESTREL_CAN_GUARD 1

extern "C"
{
#pragma GCC visibility push(default)
    void* __libc_malloc (std::size_t);
    void* __libc_calloc (std::size_t, std::size_t);
    void* __libc_realloc (void*, std::size_t);
    void* __libc_memalign (std::size_t, std::size_t);
    void __libc_free (void*);

    void* malloc (std::size_t size)
    {
        countAllocation();
        return __libc_malloc (size);
    }

    void* calloc (std::size_t count, std::size_t size)
    {
        countAllocation();
        return __libc_calloc (count, size);
    }

    void* realloc (void* block, std::size_t size)
    {
        countAllocation();
        return __libc_realloc (block, size);
    }

    void* memalign (std::size_t alignment, std::size_t size)
    {
        countAllocation();
        return __libc_memalign (alignment, size);
    }

    void* aligned_alloc (std::size_t alignment, std::size_t size)
    {
        return memalign (alignment, size);
    }

    int posix_memalign (void** block, std::size_t alignment, std::size_t size)
    {
        *block = memalign (alignment, size);
        return *block == nullptr ? ENOMEM : 0;
    }

    void free (void* block)
    {
        if (block != nullptr)
            countAllocation();

        __libc_free (block);
    }

#define KESTREL_COUNT_LOCK(name, parameters, ...)                                                                      \
    int name parameters                                                                                                \
    {                                                                                                                  \
        return countLock (#name, __VA_ARGS__);                                                                         \
    }

    // clang-format off
    KESTREL_COUNT_LOCK (pthread_mutex_lock, (pthread_mutex_t* mutex), mutex)
    KESTREL_COUNT_LOCK (pthread_rwlock_rdlock, (pthread_rwlock_t* lock), lock)
    KESTREL_COUNT_LOCK (pthread_rwlock_wrlock, (pthread_rwlock_t* lock), lock)
    KESTREL_COUNT_LOCK (pthread_cond_wait, (pthread_cond_t* condition, pthread_mutex_t* mutex), condition, mutex)
    KESTREL_COUNT_LOCK (sem_wait, (sem_t* semaphore), semaphore)
    KESTREL_COUNT_LOCK (nanosleep, (const timespec* duration, timespec* remaining), duration, remaining)
    // clang-format on

#pragma GCC visibility pop
}
#endif

namespace
{

long pageFaultsSoFar()
{
    rusage usage {};
    getrusage (RUSAGE_THREAD, &usage);
    return usage.ru_minflt + usage.ru_majflt;
}

#if KESTREL_CAN_GUARD && defined(__x86_64__)

/** Read by the kernel at every system call of this thread, once it was told to: let it through, or send a signal. */
thread_local volatile char blocksSystemCalls = 0;

/** Counts the call and makes it. The rest of a guard's life is not watched: a signal's return is a system call too. */
void onSystemCall (int, siginfo_t* info, void* context)
{
    blocksSystemCalls = 0;
    ++counters.systemCalls;

    auto& registers = static_cast<ucontext_t*> (context)->uc_mcontext.gregs;
    const auto savedError = errno;
    const auto result = syscall (info->si_syscall, registers[REG_RDI], registers[REG_RSI], registers[REG_RDX],
        registers[REG_R10], registers[REG_R8], registers[REG_R9]);
    registers[REG_RAX] = result == -1 ? -errno : result;
    errno = savedError;
}

bool watchSystemCallsOfThisThread()
{
    struct sigaction action = {};
    action.sa_sigaction = onSystemCall;
    action.sa_flags = SA_SIGINFO;
    constexpr int setDispatch = 59, on = 1; // PR_SET_SYSCALL_USER_DISPATCH, which older headers lack
    return sigaction (SIGSYS, &action, nullptr) == 0 &&
        prctl (setDispatch, on, 0, 0, const_cast<char*> (&blocksSystemCalls)) == 0;
}

void blockSystemCalls (bool shouldBlock)
{
    thread_local const bool canWatch = watchSystemCallsOfThisThread();
    blocksSystemCalls = shouldBlock && canWatch ? 1 : 0;
}

#else

bool watchSystemCallsOfThisThread()
{
    return false;
}

void blockSystemCalls (bool) {}

#endif

} // namespace

namespace kestreleq::test
{

RealTimeGuard::RealTimeGuard()
{
    blockSystemCalls (false); // sets up what is set up once for a thread
    counters = { canGuardRealTime(), 0, 0, 0, pageFaultsSoFar() };
    blockSystemCalls (true);
}

RealTimeGuard::~RealTimeGuard()
{
    blockSystemCalls (false);
    counters.armed = false;
}

int RealTimeGuard::pageFaults() const
{
    blockSystemCalls (false);
    const auto faults = pageFaultsSoFar() - counters.pageFaults;
    return static_cast<int> (faults);
}

void mapProgramAndStack()
{
    volatile char stack[1 << 17];
    std::fill (std::begin (stack), std::end (stack), char {});

    std::ifstream mappings ("/proc/self/maps");
    constexpr std::uintptr_t pageSize = 4096;

    for (std::string line; std::getline (mappings, line);)
    {
        std::istringstream fields (line);
        std::uintptr_t begin = 0, end = 0;
        char dash = 0;
        std::string permissions, offset, device;
        unsigned long file = 0;
        fields >> std::hex >> begin >> dash >> end >> permissions >> offset >> device >> std::dec >> file;

        if (file != 0 && permissions[0] == 'r')
            for (auto page = begin; page < end; page += pageSize)
                *reinterpret_cast<const volatile char*> (page);
    }
}

bool canGuardRealTime()
{
    return KESTREL_CAN_GUARD != 0;
}

bool canWatchSystemCalls()
{
    return watchSystemCallsOfThisThread();
}

} // namespace kestreleq::test
