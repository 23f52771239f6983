// Case-sensitive file system: JUCE (juce_core.cpp only) spells this <Dbghelp.h>.
#pragma once
#pragma GCC system_header
#include <dbghelp.h>
#include <intrin.h> // __cpuid, __rdtsc for juce_SystemStats_windows.cpp
