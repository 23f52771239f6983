// Plays blocks through the module on fresh threads, with automation, and counts what the module asks of the heap there:
// the watch stands in the module's own table of imports, and counts from a thread's first block on.

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/HostedModule.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <exception>
#include <thread>
#include <type_traits>

namespace
{

using kestreleq::host::Failure;
using kestreleq::host::HostedModule;

std::atomic<DWORD> watchedThread { 0 };
std::atomic<int> calls { 0 };

/** Stands before one function of the system's heap. */
template <int index, typename Result, typename... Arguments>
struct Watch
{
    static inline Result (*original) (Arguments...) = nullptr;

    static Result call (Arguments... arguments)
    {
        // Freeing nothing is no work.
        if (GetCurrentThreadId() == watchedThread && (! std::is_void_v<Result> || (... && (arguments != Arguments {}))))
            ++calls;

        return original (arguments...);
    }

    static ULONGLONG replace (ULONGLONG function)
    {
        original = reinterpret_cast<decltype (original)> (function);
        return reinterpret_cast<ULONGLONG> (&call);
    }
};

struct Watched
{
    const char* name;
    ULONGLONG (*replace) (ULONGLONG);
};

const std::array<Watched, 7> heap { {
    { "malloc", Watch<0, void*, std::size_t>::replace },
    { "calloc", Watch<1, void*, std::size_t, std::size_t>::replace },
    { "realloc", Watch<2, void*, void*, std::size_t>::replace },
    { "free", Watch<3, void, void*>::replace },
    { "_aligned_malloc", Watch<4, void*, std::size_t, std::size_t>::replace },
    { "_aligned_free", Watch<5, void, void*>::replace },
    { "HeapAlloc", Watch<6, void*, HANDLE, DWORD, std::size_t>::replace },
} };

/** Puts the watch into a loaded module's table of imports; how many functions it found there. */
int watch (HMODULE module)
{
    auto* const base = reinterpret_cast<char*> (module);
    const auto at = [base] (auto*& pointer, DWORD offset)
    { pointer = reinterpret_cast<std::decay_t<decltype (pointer)>> (base + offset); };

    IMAGE_NT_HEADERS64* headers = nullptr;
    at (headers, static_cast<DWORD> (reinterpret_cast<IMAGE_DOS_HEADER*> (base)->e_lfanew));
    IMAGE_IMPORT_DESCRIPTOR* library = nullptr;
    at (library, headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    int found = 0;

    for (; library->Name != 0; ++library)
    {
        IMAGE_THUNK_DATA64 *names = nullptr, *functions = nullptr;
        at (names, library->OriginalFirstThunk);
        at (functions, library->FirstThunk);

        for (; names->u1.AddressOfData != 0; ++names, ++functions)
        {
            if (IMAGE_SNAP_BY_ORDINAL64 (names->u1.Ordinal))
                continue;

            IMAGE_IMPORT_BY_NAME* name = nullptr;
            at (name, static_cast<DWORD> (names->u1.AddressOfData));

            for (const auto& [watched, replace] : heap)
                if (std::strcmp (name->Name, watched) == 0)
                {
                    DWORD access = 0;
                    VirtualProtect (&functions->u1.Function, sizeof (functions->u1.Function), PAGE_READWRITE, &access);
                    functions->u1.Function = replace (functions->u1.Function);
                    ++found;
                }
        }
    }

    return found;
}

/** Blocks with every parameter automated; the first comes on a thread that the module has never seen. */
void playBlocks (HostedModule& module)
{
    juce::AudioBuffer<float> buffer (2, 256);

    for (int block = 0; block < 400; ++block)
    {
        for (int i = 0; i < buffer.getNumSamples(); ++i)
            for (int channel = 0; channel < 2; ++channel)
                buffer.setSample (channel, i, static_cast<float> ((i * (31 + channel)) % 97) / 200.0f);

        const auto& parameters = module.parameters();
        parameters[static_cast<std::size_t> (block) % parameters.size()].hosted->setValue (
            static_cast<float> (block % 11) / 10.0f);
        module.process (buffer);
    }
}

int test (const char* path)
{
    const juce::ScopedJuceInitialiser_GUI initialiser;
    HostedModule module (path);
    const auto handle = GetModuleHandleA ("KestrelEQ.vst3");

    if (handle == nullptr || watch (handle) < 4)
        throw Failure ("the module's heap functions are not found");

    // A count that sees nothing would find nothing: making an instance asks for memory on this very thread.
    watchedThread = GetCurrentThreadId();
    module.prepareStereo (96000.0, 256);
    watchedThread = 0;

    if (calls == 0)
        throw Failure ("the module's heap functions are not counted");

    const auto preparing = calls.exchange (0);

    for (int i = 0; i < 3; ++i)
        std::thread (
            [&]
            {
                watchedThread = GetCurrentThreadId();
                playBlocks (module);
                watchedThread = 0;
            })
            .join();

    const auto inBlocks = calls.load();
    std::printf ("%d calls of the heap while preparing, %d in 1200 blocks of 3 fresh threads\n", preparing, inBlocks);
    return inBlocks == 0 ? 0 : 1;
}

} // namespace

int main (int argc, char* argv[])
{
    if (argc != 2)
    {
        std::fputs ("usage: kestrel-heap-test MODULE.vst3\n", stderr);
        return 2;
    }

    try
    {
        return test (argv[1]);
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "kestrel-heap-test: %s\n", error.what());
        return 1;
    }
}
