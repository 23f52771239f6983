// Force-included (-include) before every translation unit of a MinGW build of JUCE 8.
#pragma once
#pragma GCC system_header

#if defined(JUCE_GLOBAL_MODULE_SETTINGS_INCLUDED) // i.e. only in targets that link JUCE modules

// 1. juce_TargetPlatform.h refuses __MINGW32__ and only sets JUCE_64BIT for MSVC.
//    It is "#pragma once", so reading it here first, with the macro hidden, is enough.
#define JUCE_64BIT 1
#pragma push_macro("__MINGW32__")
#undef __MINGW32__
#include <juce_core/system/juce_TargetPlatform.h>
#pragma pop_macro("__MINGW32__")

#ifdef __cplusplus

// 1b. juce_UMPFactory.h uses std::memcpy without including this
#include <cstring>

// 1c. GCC cannot parse _Pragma inside a lambda inside a default member initialiser
//     (juce_DirectX_windows.h); juce_CompilerWarnings.h is "#pragma once" too.
#include <juce_core/system/juce_CompilerWarnings.h>
#undef JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE
#undef JUCE_END_IGNORE_WARNINGS_GCC_LIKE
#define JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE(...)
#define JUCE_END_IGNORE_WARNINGS_GCC_LIKE

// 2. __uuidof
#include <guiddef.h>

namespace juce
{
template <class ComClass>
class ComSmartPtr;
}

namespace juce_mingw
{
template <typename T>
struct UuidOf
{
    static const GUID& get() noexcept { return __mingw_uuidof<T>(); }
};

template <typename T>
struct UuidOf<T*> : UuidOf<T>
{
};

template <typename T>
struct UuidOf<T&> : UuidOf<T>
{
};

template <typename T>
struct UuidOf<const T> : UuidOf<T>
{
};

template <typename T>
struct UuidOf<juce::ComSmartPtr<T>> : UuidOf<T>
{
};
} // namespace juce_mingw

#undef __uuidof
#define __uuidof(x) ::juce_mingw::UuidOf<__typeof (x)>::get()

#endif

#endif
