#pragma once

#include <cstdio>
#include <cstdlib>

/** What no input may break; ends the fuzzer, which keeps the input. */
#define KESTREL_INVARIANT(condition)                                                                                   \
    do                                                                                                                 \
    {                                                                                                                  \
        if (! (condition))                                                                                             \
        {                                                                                                              \
            std::fprintf (stderr, "broken: %s\n", #condition);                                                         \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)
