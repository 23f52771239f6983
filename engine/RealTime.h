#pragma once

// Marks a function that neither allocates, locks nor waits, all that it calls included. It stands behind the parameter
// list. The real-time sanitizer (preset "rtsan") ends the process where that is not so; elsewhere it means nothing.
#if defined(__clang__) && defined(__has_cpp_attribute)
#if __has_cpp_attribute(clang::nonblocking)
#define KESTREL_NONBLOCKING [[clang::nonblocking]]
#endif
#endif

#ifndef KESTREL_NONBLOCKING
#define KESTREL_NONBLOCKING
#endif
