#pragma once

#include "tests/windows/LoadedModule.h"

#include <pluginterfaces/gui/iplugview.h>
#include <pluginterfaces/gui/iplugviewcontentscalesupport.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivsteditcontroller.h>
#include <pluginterfaces/vst/ivstmessage.h>

#include <cmath>
#include <cstdint>
#include <utility>

namespace kestreleq::test
{

namespace Vst = Steinberg::Vst;

/** Lets the thread's messages run for so long. */
inline void pump (DWORD milliseconds)
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

/** An instance of the effect with its view in a window of this host, which follows what the view asks for. */
class PluginWindow final : private Steinberg::IPlugFrame
{
public:
    using Size = std::pair<long, long>;
    using Pixels = std::vector<std::uint32_t>;

    explicit PluginWindow (LoadedModule& module, int top = 0)
        : component (module.create<Vst::IComponent> (module.getEffect().cid, Vst::IComponent_iid))
    {
        Steinberg::TUID controllerId;
        component->getControllerClassId (controllerId);
        controller = module.create<Vst::IEditController> (controllerId, Vst::IEditController_iid);
        component->initialize (nullptr);
        controller->initialize (nullptr);
        connect (&Vst::IConnectionPoint::connect);

        view = Steinberg::owned (controller->createView (Vst::ViewType::kEditor));
        Steinberg::ViewRect size;
        view->getSize (&size);
        view->setFrame (this);
        window = CreateWindowExW (0, L"STATIC", L"host", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, top,
            size.getWidth(), size.getHeight(), nullptr, nullptr, nullptr, nullptr);
        require (view->attached (window, Steinberg::kPlatformTypeHWND) == Steinberg::kResultOk, "no view is attached");
        child = GetWindow (window, GW_CHILD);
        require (child != nullptr, "the module has no window");
        pump (100);
    }

    ~PluginWindow()
    {
        view->removed();
        view->setFrame (nullptr);
        view = nullptr;
        DestroyWindow (window);
        connect (&Vst::IConnectionPoint::disconnect);
        controller->terminate();
        component->terminate();
    }

    /** What the display that the window is on would say. */
    void setScale (double scale)
    {
        interfaceOf<Steinberg::IPlugViewContentScaleSupport> (*view, Steinberg::IPlugViewContentScaleSupport_iid)
            ->setContentScaleFactor (static_cast<float> (scale));
        pump (300);
    }

    /** As the user does at the window's edge. */
    void resize (int width, int height)
    {
        Steinberg::ViewRect wanted (0, 0, width, height);
        view->checkSizeConstraint (&wanted);
        resizeView (view, &wanted);
        pump (300);
    }

    /** Of the module's own window. */
    Size getSize() const
    {
        RECT area {};
        GetClientRect (child, &area);
        return { area.right, area.bottom };
    }

    void drag (POINT from, POINT to)
    {
        send (WM_MOUSEMOVE, 0, from);
        send (WM_LBUTTONDOWN, MK_LBUTTON, from);
        send (WM_MOUSEMOVE, MK_LBUTTON, { (from.x + to.x) / 2, (from.y + to.y) / 2 });
        send (WM_MOUSEMOVE, MK_LBUTTON, to);
        send (WM_LBUTTONUP, 0, to);
        pump (300);
    }

    void click (POINT at) { drag (at, at); }

    Pixels capture() const
    {
        const auto [width, height] = getSize();
        BITMAPINFO info {};
        info.bmiHeader = { sizeof (BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0 };
        void* bits = nullptr;
        const auto source = GetDC (child);
        const auto memory = CreateCompatibleDC (source);
        const auto bitmap = CreateDIBSection (memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        require (bitmap != nullptr, "no picture can be taken");
        SelectObject (memory, bitmap);
        BitBlt (memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
        Pixels pixels (static_cast<std::size_t> (width * height));
        std::memcpy (pixels.data(), bits, pixels.size() * sizeof (pixels[0]));
        DeleteDC (memory);
        DeleteObject (bitmap);
        ReleaseDC (child, source);
        return pixels;
    }

    /** The number of the first parameter that is not at its default; below 0 for none. */
    int getFirstChanged() const
    {
        for (Steinberg::int32 i = 0; i < controller->getParameterCount(); ++i)
        {
            Vst::ParameterInfo info {};
            controller->getParameterInfo (i, info);

            if (std::abs (controller->getParamNormalized (info.id) - info.defaultNormalizedValue) > 1e-6)
                return i;
        }

        return -1;
    }

private:
    template <typename Interface>
    static Steinberg::IPtr<Interface> interfaceOf (Steinberg::FUnknown& object, const Steinberg::TUID id)
    {
        void* found = nullptr;
        require (object.queryInterface (id, &found) == Steinberg::kResultOk, "an interface is missing");
        return Steinberg::owned (static_cast<Interface*> (found));
    }

    void connect (Steinberg::tresult (PLUGIN_API Vst::IConnectionPoint::*act) (Vst::IConnectionPoint*))
    {
        const auto first = interfaceOf<Vst::IConnectionPoint> (*component, Vst::IConnectionPoint_iid);
        const auto second = interfaceOf<Vst::IConnectionPoint> (*controller, Vst::IConnectionPoint_iid);
        (first->*act) (second);
        (second->*act) (first);
    }

    void send (UINT message, WPARAM buttons, POINT at)
    {
        SendMessageW (child, message, buttons, MAKELPARAM (at.x, at.y));
        pump (50);
    }

    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID, void** object) override
    {
        *object = nullptr; // the view asks its frame for nothing else
        return Steinberg::kNoInterface;
    }

    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }

    Steinberg::uint32 PLUGIN_API release() override { return 1; }

    Steinberg::tresult PLUGIN_API resizeView (Steinberg::IPlugView* asking, Steinberg::ViewRect* size) override
    {
        SetWindowPos (window, nullptr, 0, 0, size->getWidth(), size->getHeight(), SWP_NOMOVE | SWP_NOZORDER);
        return asking->onSize (size);
    }

    Steinberg::IPtr<Vst::IComponent> component;
    Steinberg::IPtr<Vst::IEditController> controller;
    Steinberg::IPtr<Steinberg::IPlugView> view;
    HWND window = nullptr;
    HWND child = nullptr; // the module's
};

} // namespace kestreleq::test
