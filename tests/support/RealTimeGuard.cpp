#include "tests/support/RealTimeGuard.h"

#include <cerrno>
#include <cstddef>
#include <dlfcn.h>
#include <pthread.h>
#include <semaphore.h>
#include <time.h>

namespace
{

struct Counters
{
    bool armed;
    int allocations;
    int locks;
};

thread_local Counters counters;

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

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
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
        countAllocation();
        __libc_free (block);
    }

    int pthread_mutex_lock (pthread_mutex_t* mutex)
    {
        return countLock ("pthread_mutex_lock", mutex);
    }

    int pthread_rwlock_rdlock (pthread_rwlock_t* lock)
    {
        return countLock ("pthread_rwlock_rdlock", lock);
    }

    int pthread_rwlock_wrlock (pthread_rwlock_t* lock)
    {
        return countLock ("pthread_rwlock_wrlock", lock);
    }

    int pthread_cond_wait (pthread_cond_t* condition, pthread_mutex_t* mutex)
    {
        return countLock ("pthread_cond_wait", condition, mutex);
    }

    int sem_wait (sem_t* semaphore)
    {
        return countLock ("sem_wait", semaphore);
    }

    int nanosleep (const timespec* duration, timespec* remaining)
    {
        return countLock ("nanosleep", duration, remaining);
    }

#pragma GCC visibility pop
}
#endif

namespace kestreleq::test
{

RealTimeGuard::RealTimeGuard()
{
    counters = { true, 0, 0 };
}

RealTimeGuard::~RealTimeGuard()
{
    counters.armed = false;
}

int RealTimeGuard::allocations() const
{
    return counters.allocations;
}

int RealTimeGuard::locks() const
{
    return counters.locks;
}

bool canGuardRealTime()
{
    return KESTREL_CAN_GUARD != 0;
}

} // namespace kestreleq::test
