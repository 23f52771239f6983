#include "tests/windows/PluginWindow.h"

#include <algorithm>

namespace kestreleq::test
{
namespace
{

using namespace Steinberg;

template <typename Interface>
IPtr<Interface> interfaceOf (FUnknown& object, const TUID id)
{
    void* found = nullptr;
    require (object.queryInterface (id, &found) == kResultOk, "an interface is missing");
    return owned (static_cast<Interface*> (found));
}

} // namespace

void pump (DWORD milliseconds)
{
    const auto end = GetTickCount() + milliseconds;

    for (auto now = GetTickCount(); now < end; now = GetTickCount())
    {
        MsgWaitForMultipleObjects (0, nullptr, FALSE, end - now, QS_ALLINPUT);

        for (MSG message; PeekMessageW (&message, nullptr, 0, 0, PM_REMOVE);)
        {
            TranslateMessage (&message);
            DispatchMessageW (&message);
        }
    }
}

int countWindows()
{
    LPARAM count = 0;
    EnumThreadWindows (
        GetCurrentThreadId(),
        [] (HWND window, LPARAM counter) -> BOOL
        {
            *reinterpret_cast<LPARAM*> (counter) += IsWindowVisible (window) ? 1 : 0;
            return TRUE;
        },
        reinterpret_cast<LPARAM> (&count));
    return static_cast<int> (count);
}

double difference (const Pixels& a, const Pixels& b)
{
    if (a.size() != b.size() || a.empty())
        return 1.0;

    std::size_t different = 0;

    for (std::size_t i = 0; i < a.size(); ++i)
        different += a[i] != b[i] ? 1u : 0u;

    return static_cast<double> (different) / static_cast<double> (a.size());
}

bool isBlank (const Pixels& pixels)
{
    return std::adjacent_find (pixels.begin(), pixels.end(), std::not_equal_to<>()) == pixels.end();
}

PluginWindow::PluginWindow (LoadedModule& module, int top)
    : component (module.create<Vst::IComponent> (module.getEffect().cid, Vst::IComponent_iid))
{
    TUID controllerId;
    component->getControllerClassId (controllerId);
    controller = module.create<Vst::IEditController> (controllerId, Vst::IEditController_iid);
    component->initialize (nullptr);
    controller->initialize (nullptr);
    connect (true);

    view = owned (controller->createView (Vst::ViewType::kEditor));
    require (view != nullptr, "there is no view");
    ViewRect size;
    view->getSize (&size);
    view->setFrame (this);
    window = CreateWindowExW (0, L"STATIC", L"host", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, top, size.getWidth(),
        size.getHeight(), nullptr, nullptr, nullptr, nullptr);
    require (window != nullptr, "the host has no window");
    require (view->attached (window, kPlatformTypeHWND) == kResultOk, "the view is not attached");
    child = GetWindow (window, GW_CHILD);
    require (child != nullptr, "the module has no window");
    pump (100);
}

PluginWindow::~PluginWindow()
{
    view->removed();
    view->setFrame (nullptr);
    view = nullptr;
    DestroyWindow (window);
    connect (false);
    controller->terminate();
    component->terminate();
}

void PluginWindow::connect (bool shouldConnect)
{
    const auto first = interfaceOf<Vst::IConnectionPoint> (*component, Vst::IConnectionPoint_iid);
    const auto second = interfaceOf<Vst::IConnectionPoint> (*controller, Vst::IConnectionPoint_iid);

    for (const auto& [one, other] : { std::pair { first, second }, std::pair { second, first } })
        shouldConnect ? one->connect (other) : one->disconnect (other);
}

tresult PLUGIN_API PluginWindow::queryInterface (const TUID id, void** object)
{
    const bool known = FUnknownPrivate::iidEqual (id, IPlugFrame_iid) || FUnknownPrivate::iidEqual (id, FUnknown_iid);
    *object = known ? static_cast<IPlugFrame*> (this) : nullptr;
    return known ? kResultOk : kNoInterface;
}

tresult PLUGIN_API PluginWindow::resizeView (IPlugView* asking, ViewRect* size)
{
    SetWindowPos (window, nullptr, 0, 0, size->getWidth(), size->getHeight(), SWP_NOMOVE | SWP_NOZORDER);
    return asking->onSize (size);
}

void PluginWindow::setScale (double scale)
{
    interfaceOf<IPlugViewContentScaleSupport> (*view, IPlugViewContentScaleSupport_iid)
        ->setContentScaleFactor (static_cast<float> (scale));
    pump (300);
}

void PluginWindow::resize (Size size)
{
    ViewRect wanted (0, 0, static_cast<int32> (size.first), static_cast<int32> (size.second));
    require (view->checkSizeConstraint (&wanted) == kResultOk, "no size is allowed");
    resizeView (view, &wanted);
    pump (300);
}

PluginWindow::Size PluginWindow::getSize() const
{
    RECT area {};
    GetClientRect (child, &area);
    return { area.right, area.bottom };
}

void PluginWindow::send (UINT message, WPARAM buttons, POINT at)
{
    SendMessageW (child, message, buttons, MAKELPARAM (at.x, at.y));
    pump (50);
}

void PluginWindow::click (POINT at)
{
    send (WM_MOUSEMOVE, 0, at);
    send (WM_LBUTTONDOWN, MK_LBUTTON, at);
    send (WM_LBUTTONUP, 0, at);
    pump (300);
}

void PluginWindow::drag (POINT from, POINT to)
{
    send (WM_MOUSEMOVE, 0, from);
    send (WM_LBUTTONDOWN, MK_LBUTTON, from);
    send (WM_MOUSEMOVE, MK_LBUTTON, { (from.x + to.x) / 2, (from.y + to.y) / 2 });
    send (WM_MOUSEMOVE, MK_LBUTTON, to);
    send (WM_LBUTTONUP, 0, to);
    pump (300);
}

Pixels PluginWindow::capture() const
{
    const auto [width, height] = getSize();
    BITMAPINFO info {};
    info.bmiHeader = { sizeof (BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0 };
    void* bits = nullptr;
    const auto source = GetDC (child);
    const auto memory = CreateCompatibleDC (source);
    const auto bitmap = CreateDIBSection (memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    require (bitmap != nullptr, "no picture can be taken");
    const auto previous = SelectObject (memory, bitmap);
    BitBlt (memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
    Pixels pixels (static_cast<std::size_t> (width * height));
    std::memcpy (pixels.data(), bits, pixels.size() * sizeof (pixels[0]));
    SelectObject (memory, previous);
    DeleteObject (bitmap);
    DeleteDC (memory);
    ReleaseDC (child, source);
    return pixels;
}

int PluginWindow::getFirstChanged() const
{
    for (int32 i = 0; i < controller->getParameterCount(); ++i)
    {
        Vst::ParameterInfo info {};
        controller->getParameterInfo (i, info);

        if (std::abs (controller->getParamNormalized (info.id) - info.defaultNormalizedValue) > 1e-6)
            return i;
    }

    return -1;
}

} // namespace kestreleq::test
