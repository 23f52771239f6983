#pragma once

#include <pluginterfaces/base/ipluginbase.h>
#include <pluginterfaces/base/smartpointer.h>

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestreleq::test
{

inline void require (bool holds, const char* what)
{
    if (! holds)
        throw std::runtime_error (what);
}

template <typename Function>
Function find (HMODULE module, const char* name)
{
    const auto address = GetProcAddress (module, name);
    require (address != nullptr, name);
    Function function = nullptr;
    std::memcpy (&function, &address, sizeof (function));
    return function;
}

/** The module, loaded as a host loads it. Everything of it must be let go before `unload`. */
class LoadedModule
{
public:
    explicit LoadedModule (const wchar_t* pathToLoad)
        : path (pathToLoad),
          handle (LoadLibraryW (pathToLoad))
    {
        require (handle != nullptr, "the module does not load");
        require (find<bool (*)()> (handle, "InitDll")(), "InitDll refuses");
        factory = find<Steinberg::IPluginFactory*(__stdcall*)()> (handle, "GetPluginFactory")();
        require (factory != nullptr, "there is no factory");
    }

    /** Whether it is gone then. */
    bool unload()
    {
        factory->release();
        require (find<bool (*)()> (handle, "ExitDll")(), "ExitDll refuses");
        require (FreeLibrary (handle) != 0, "the module cannot be let go");
        return GetModuleHandleW (path.c_str()) == nullptr;
    }

    /** The description of its audio effect's class. */
    Steinberg::PClassInfo getEffect()
    {
        for (Steinberg::int32 i = 0; i < factory->countClasses(); ++i)
        {
            Steinberg::PClassInfo entry;
            require (factory->getClassInfo (i, &entry) == Steinberg::kResultOk, "a class has no description");
            require (std::strcmp (entry.name, "Kestrel EQ") == 0, "a class has a wrong name");

            if (std::strcmp (entry.category, "Audio Module Class") == 0)
                return entry;
        }

        throw std::runtime_error ("there is no audio effect");
    }

    /** A new object of a class. */
    template <typename Interface>
    Steinberg::IPtr<Interface> create (const Steinberg::TUID classId, const Steinberg::TUID interfaceId)
    {
        void* object = nullptr;
        require (
            factory->createInstance (classId, interfaceId, &object) == Steinberg::kResultOk, "there is no instance");
        return Steinberg::owned (static_cast<Interface*> (object));
    }

private:
    std::wstring path;
    HMODULE handle;
    Steinberg::IPluginFactory* factory = nullptr;
};

/** One row of the system's table of all open handles. */
struct HandleEntry
{
    void* object;
    ULONG_PTR process;
    ULONG_PTR value;
    ULONG access;
    USHORT backTrace, type;
    ULONG attributes, reserved;
};

/** This process's, from the system's table, because Wine answers the plain question for their number with 0. */
inline int openHandles()
{
    constexpr int handleTable = 64;
    constexpr LONG tooShort = static_cast<LONG> (0xc0000004);
    using Query = LONG (__stdcall*) (int, void*, ULONG, ULONG*);
    const auto query = find<Query> (GetModuleHandleW (L"ntdll.dll"), "NtQuerySystemInformation");
    std::vector<ULONG_PTR> table (1 << 14);
    LONG status = tooShort;

    while ((status = query (
                handleTable, table.data(), static_cast<ULONG> (table.size() * sizeof (table[0])), nullptr)) == tooShort)
        table.resize (table.size() * 2);

    require (status == 0, "handles cannot be counted");
    int count = 0;

    for (std::size_t i = 0; i < table[0]; ++i) // two words of header before the rows
    {
        HandleEntry entry {};
        std::memcpy (&entry, reinterpret_cast<const char*> (table.data() + 2) + i * sizeof (entry), sizeof (entry));
        count += entry.process == GetCurrentProcessId() ? 1 : 0;
    }

    return count;
}

/** A count that sees no handle would see no leak. */
inline void checkTheCount()
{
    const auto before = openHandles();
    auto* const event = CreateEventW (nullptr, FALSE, FALSE, nullptr);
    const auto during = openHandles();
    CloseHandle (event);
    require (before > 0 && during == before + 1 && openHandles() == before, "handles are not counted");
}

/** A host has these all the time; here they would come and go with the module, and Wine's leave handles behind. */
inline void holdSystemLibraries()
{
    for (const auto* library :
        { L"d2d1", L"d3d11", L"dcomp", L"dwmapi", L"comdlg32", L"dbghelp", L"wininet", L"winmm" })
        require (LoadLibraryW (library) != nullptr, "a library of the system is missing");
}

} // namespace kestreleq::test
