// Loads the module, creates its effect and unloads it again and again, as a host's scan does, and watches what is left
// behind.

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

/** The parts of the plug-in interface that a scan reads, in the binary layout of its COM-like classes. Not in a
    nameless namespace: the compiler would know that nobody here implements them, and leave the calls out. */
namespace kestreleq::test
{

struct ClassInfo
{
    char id[16];
    std::int32_t cardinality;
    char category[32];
    char name[64];
};

struct Object
{
    virtual std::int32_t __stdcall queryInterface (const char* id, void** object) = 0;
    virtual std::uint32_t __stdcall addRef() = 0;
    virtual std::uint32_t __stdcall release() = 0;

protected:
    ~Object() = default;
};

struct Factory : Object
{
    virtual std::int32_t __stdcall getFactoryInfo (void* info) = 0;
    virtual std::int32_t __stdcall countClasses() = 0;
    virtual std::int32_t __stdcall getClassInfo (std::int32_t index, ClassInfo* info) = 0;
    virtual std::int32_t __stdcall createInstance (const char* classId, const char* interfaceId, void** object) = 0;

protected:
    ~Factory() = default;
};

} // namespace kestreleq::test

namespace
{

using namespace kestreleq::test;

constexpr int rounds = 50;
constexpr int warmUp = 10; // Windows itself keeps some handles from the first loads

void require (bool holds, const char* what)
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

/** Creates the effect, and lets it go again. */
void createAndRelease (Factory& factory, const char* classId)
{
    constexpr char objectId[16] { 0, 0, 0, 0, 0, 0, 0, 0, '\xc0', 0, 0, 0, 0, 0, 0, '\x46' };
    void* object = nullptr;
    require (factory.createInstance (classId, objectId, &object) == 0 && object != nullptr, "there is no instance");
    require (static_cast<Object*> (object)->release() == 0, "the instance is still held");
}

void readFactory (Factory& factory)
{
    bool hasEffect = false;

    for (std::int32_t i = 0; i < factory.countClasses(); ++i)
    {
        ClassInfo entry {};
        require (factory.getClassInfo (i, &entry) == 0, "a class has no description");
        require (std::strcmp (entry.name, "Kestrel EQ") == 0, "a class has a wrong name");

        if (std::strcmp (entry.category, "Audio Module Class") == 0)
        {
            hasEffect = true;
            createAndRelease (factory, entry.id);
        }
    }

    require (hasEffect, "there is no audio effect");
}

void loadAndUnload (const wchar_t* path)
{
    const auto module = LoadLibraryW (path);
    require (module != nullptr, "the module does not load");

    const auto enter = find<bool (*)()> (module, "InitDll");
    const auto leave = find<bool (*)()> (module, "ExitDll");
    const auto getFactory = find<Factory*(__stdcall*)()> (module, "GetPluginFactory");

    require (enter(), "InitDll refuses");
    auto* factory = getFactory();
    require (factory != nullptr, "there is no factory");
    readFactory (*factory);
    factory->release();
    require (leave(), "ExitDll refuses");
    require (FreeLibrary (module) != 0 && GetModuleHandleW (path) == nullptr, "the module stays loaded");
}

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
int openHandles()
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
void checkTheCount()
{
    const auto before = openHandles();
    auto* const event = CreateEventW (nullptr, FALSE, FALSE, nullptr);
    const auto during = openHandles();
    CloseHandle (event);
    require (before > 0 && during == before + 1 && openHandles() == before, "handles are not counted");
}

} // namespace

int wmain (int argc, wchar_t* argv[])
{
    if (argc != 2)
    {
        std::fputs ("usage: kestrel-load-test MODULE.vst3\n", stderr);
        return 2;
    }

    int round = 0;

    try
    {
        // A host has these all the time; here they would come and go with the module, and Wine's leave handles behind.
        for (const auto* library :
            { L"d2d1", L"d3d11", L"dcomp", L"dwmapi", L"comdlg32", L"dbghelp", L"wininet", L"winmm" })
            require (LoadLibraryW (library) != nullptr, "a library of the system is missing");

        int before = 0;
        checkTheCount();

        for (; round < rounds; ++round)
        {
            if (round == warmUp)
                before = openHandles();

            loadAndUnload (argv[1]);
        }

        const auto after = openHandles();
        std::printf ("%d loads, %d handles before and %d after the last %d\n", rounds, before, after, rounds - warmUp);
        require (after <= before, "handles are left open");
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "kestrel-load-test: round %d: %s (error %lu)\n", round + 1, error.what(), GetLastError());
        return 1;
    }
}
