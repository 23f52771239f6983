/* Without this the compiler's thread library leaves four handles open whenever a host unloads the module. */
#include <windows.h>

#include <stdlib.h>

/* The lock around the library's table of thread-specific keys, in place of the library's own, whose semaphores nothing
   closes. The table is its only user, and locks shortly and never twice, so that readers may wait for each other. */

typedef char lock_fits[sizeof (SRWLOCK) == sizeof (INT_PTR) ? 1 : -1];

static int acquire (INT_PTR* lock)
{
    InterlockedCompareExchange64 (lock, 0, -1); /* from the library's static initialiser to the system's */
    AcquireSRWLockExclusive ((SRWLOCK*) lock);
    return 0;
}

int pthread_rwlock_rdlock (INT_PTR* lock)
{
    return acquire (lock);
}

int pthread_rwlock_wrlock (INT_PTR* lock)
{
    return acquire (lock);
}

int pthread_rwlock_unlock (INT_PTR* lock)
{
    ReleaseSRWLockExclusive ((SRWLOCK*) lock);
    return 0;
}

/* The library keeps a record, with a thread and an event handle, of each thread that has called it, until the thread ends.
   The one that unloads the module goes on: so the library is told that it ends, after the last static destructor, because
   those call the library, too. The first to be registered is the last to be called. */

extern PIMAGE_TLS_CALLBACK __xl_f; /* the library's own, for threads that begin and end */

static void forgetThisThread (void)
{
    __xl_f (NULL, DLL_THREAD_DETACH, NULL);
}

__attribute__ ((constructor (101))) static void beforeAllConstructors (void)
{
    atexit (forgetThisThread);
}
