// Makes a mistake in the module's place that no module can survive, and tells what Windows tells of such a crash: the
// module's time stamp and the offsets in it of the fault and, further, of where the calls under it return to.

#include "tests/windows/LoadedModule.h"

#include <cstdint>

namespace
{

HMODULE module = nullptr;

LONG WINAPI tellOfCrash (EXCEPTION_POINTERS* crash)
{
    auto context = *crash->ContextRecord;
    const auto* const start = reinterpret_cast<const char*> (module);
    const auto* const headers = start + reinterpret_cast<const IMAGE_DOS_HEADER*> (start)->e_lfanew;
    std::printf ("%08lx", reinterpret_cast<const IMAGE_NT_HEADERS*> (headers)->FileHeader.TimeDateStamp);

    while (context.Rip != 0)
    {
        DWORD64 image = 0;
        auto* const function = RtlLookupFunctionEntry (context.Rip, &image, nullptr);

        if (function == nullptr)
            break;

        if (image == reinterpret_cast<DWORD64> (module))
            std::printf (" %llx", context.Rip - image);

        void* data = nullptr;
        DWORD64 frame = 0;
        RtlVirtualUnwind (UNW_FLAG_NHANDLER, image, context.Rip, function, &context, &data, &frame, nullptr);
    }

    std::fflush (stdout);
    ExitProcess (3);
}

} // namespace

int wmain (int argc, wchar_t* argv[])
{
    module = argc == 2 ? LoadLibraryW (argv[1]) : nullptr;

    if (module == nullptr)
    {
        std::fputs ("usage: kestrel-crash-test MODULE.vst3\n", stderr);
        return 2;
    }

    const auto getFactory =
        kestreleq::test::find<Steinberg::IPluginFactory*(__stdcall*)()> (module, "GetPluginFactory");
    SetUnhandledExceptionFilter (tellOfCrash);

    // A description is asked for, into memory that there is not.
    getFactory()->getClassInfo (0, reinterpret_cast<Steinberg::PClassInfo*> (std::uintptr_t { 64 }));
    return 1;
}
