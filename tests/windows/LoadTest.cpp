// Loads the module, creates its effect and unloads it again and again, as a host's scan does, and watches what is left
// behind.

#include "tests/windows/LoadedModule.h"

#include <exception>

namespace
{

using namespace kestreleq::test;

constexpr int rounds = 50;
constexpr int warmUp = 10; // Windows itself keeps some handles from the first loads

void loadAndUnload (const wchar_t* path)
{
    LoadedModule module (path);
    auto effect = module.create<Steinberg::FUnknown> (module.getEffect().cid, Steinberg::FUnknown_iid);
    require (effect.take()->release() == 0, "the instance is still held");
    require (module.unload(), "the module stays loaded");
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
        holdSystemLibraries();
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
