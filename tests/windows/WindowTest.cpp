// Opens the module's window as hosts do and as they should not: display scales, two at once, unloading with a list or
// the sheet open, a hundred times. The places are those of the controls in the window as it opens, in pixels.

#include "tests/windows/PluginWindow.h"

#include <array>
#include <exception>
#include <functional>
#include <numeric>

namespace
{

using namespace kestreleq::test;

constexpr int rounds = 100;
constexpr int warmUp = 10;
constexpr double enoughToSee = 0.005; // of the window's pixels

using Pixels = PluginWindow::Pixels;

/** The part of the pixels that differ; all of them where the sizes do. */
double difference (const Pixels& a, const Pixels& b)
{
    const auto same = [&]
    { return std::inner_product (a.begin(), a.end(), b.begin(), 0.0, std::plus<>(), std::equal_to<>()); };
    return a.size() != b.size() ? 1.0 : 1.0 - same() / static_cast<double> (a.size());
}

/** The visible windows of this thread. */
int countWindows()
{
    int count = 0;
    const auto add = [] (HWND window, LPARAM counter) -> BOOL
    {
        *reinterpret_cast<int*> (counter) += IsWindowVisible (window) ? 1 : 0;
        return TRUE;
    };
    EnumThreadWindows (GetCurrentThreadId(), add, reinterpret_cast<LPARAM> (&count));
    return count;
}

POINT scaled (POINT at, double scale)
{
    return { std::lround (at.x * scale), std::lround (at.y * scale) };
}

void testScales (LoadedModule& module, POINT menu)
{
    PluginWindow window (module);
    const auto opening = window.getSize();
    const auto closed = window.capture();
    require (opening == PluginWindow::Size { 836, 429 }, "the window does not open");

    for (const auto scale : { 2.0, 1.5, 1.0 })
    {
        window.setScale (scale);
        const PluginWindow::Size wanted { std::lround (836 * scale), std::lround (429 * scale) };
        require (window.getSize() == wanted, "the window does not follow the display's scale");
        const auto before = window.capture();
        window.click (scaled (menu, scale));
        require (difference (before, window.capture()) > enoughToSee, "no menu opens at the display's scale");
        window.click (scaled (menu, scale));
        require (difference (before, window.capture()) < enoughToSee, "the menu does not close");
    }

    require (difference (closed, window.capture()) < enoughToSee, "scale 1 looks otherwise after the others");

    for (const auto scale : { 1.25, 1.5, 1.1, 1.75, 1.3, 1.0 })
        window.setScale (scale);

    require (window.getSize() == opening, "the window grows or shrinks from scale to scale");

    // Dragged to a display of 200 %, made larger there, and dragged back.
    window.setScale (2.0);
    window.resize (2006, 1030);
    const auto [width, height] = window.getSize();
    window.setScale (1.0);
    const auto [newWidth, newHeight] = window.getSize();
    std::printf ("display scales: %ld x %ld at 200 %%, %ld x %ld at 100 %%\n", width, height, newWidth, newHeight);
    require (std::abs (2 * newWidth - width) <= 1 && std::abs (2 * newHeight - height) <= 1 && newWidth > 1000,
        "a size chosen at 200 % is not kept");
}

void testTwoAtOnce (LoadedModule& module, POINT knob)
{
    PluginWindow first (module), second (module, 450);
    const auto before = second.capture();
    first.drag (knob, { knob.x, knob.y - 40 });
    require (first.getFirstChanged() >= 0, "a drag changes nothing");
    require (second.getFirstChanged() < 0 && difference (before, second.capture()) < enoughToSee,
        "a drag in one window changes the other");
    std::printf ("two windows: a drag in one changed its parameter %d only there\n", first.getFirstChanged());
}

/** Lets the module go with its window in the state in which the clicks leave it. The compiler's runtime keeps the code
    mapped for as long as this thread lives, for what it keeps for each thread; nothing of it may act. */
void testUnloading (const wchar_t* path, const char* what, const std::vector<POINT>& clicks)
{
    LoadedModule module (path);
    {
        PluginWindow window (module);
        const auto before = window.capture();

        for (const auto at : clicks)
            window.click (at);

        pump (600); // the sheet slides in
        require (difference (before, window.capture()) > 10.0 * enoughToSee, "nothing opens");
    }
    module.unload();
    pump (600); // nothing may be under way
    require (countWindows() == 0, "a window is left");
    std::printf ("let go: with the %s open\n", what);
}

void testOpenings (LoadedModule& module)
{
    int before = 0;

    for (int round = 0; round < rounds; ++round)
    {
        if (round == warmUp)
            before = openHandles();

        const PluginWindow window (module);
    }

    pump (100);
    const auto after = openHandles();
    std::printf ("openings: %d, %d handles before and %d after the last %d\n", rounds, before, after, rounds - warmUp);
    require (after <= before, "handles are left open");
    require (countWindows() == 0, "windows are left");
}

} // namespace

int wmain (int argc, wchar_t* argv[])
{
    if (argc != 8)
    {
        std::fputs ("usage: kestrel-window-test MODULE.vst3 MENU-X Y SUPPORT-X Y KNOB-X Y\n", stderr);
        return 2;
    }

    std::array<POINT, 3> places {};

    for (std::size_t i = 0; i < places.size(); ++i)
        places[i] = { std::stol (argv[2 + 2 * i]), std::stol (argv[3 + 2 * i]) };

    const auto [menu, support, knob] = places;

    try
    {
        holdSystemLibraries();
        checkTheCount();
        {
            LoadedModule module (argv[1]);
            testScales (module, menu);
            testTwoAtOnce (module, knob);
            testOpenings (module);
            module.unload();
        }
        testUnloading (argv[1], "menu", { menu });
        testUnloading (argv[1], "sheet", { menu, support });
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "kestrel-window-test: %s (error %lu)\n", error.what(), GetLastError());
        return 1;
    }
}
