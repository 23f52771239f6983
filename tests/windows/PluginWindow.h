#pragma once

#include "tests/windows/LoadedModule.h"

#include <pluginterfaces/gui/iplugview.h>
#include <pluginterfaces/gui/iplugviewcontentscalesupport.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivsteditcontroller.h>
#include <pluginterfaces/vst/ivstmessage.h>

#include <cmath>
#include <utility>

namespace kestreleq::test
{

namespace Vst = Steinberg::Vst;

/** Lets the thread's messages run for so long. */
void pump (DWORD milliseconds);

/** The visible windows of this thread. */
int countWindows();

using Pixels = std::vector<std::uint32_t>;

/** The part of the pixels that differ; all of them where the sizes do. */
double difference (const Pixels& a, const Pixels& b);

bool isBlank (const Pixels& pixels);

/** An instance of the effect with its view in a window of this host, which follows what the view asks for. */
class PluginWindow final : private Steinberg::IPlugFrame
{
public:
    using Size = std::pair<long, long>;

    explicit PluginWindow (LoadedModule& module, int top = 0);
    ~PluginWindow();

    /** What the display that the window is on would say. */
    void setScale (double scale);

    /** As the user does at the window's edge. */
    void resize (Size size);

    /** Of the module's own window. */
    Size getSize() const;

    void click (POINT at);
    void drag (POINT from, POINT to);
    Pixels capture() const;

    /** The number of the first parameter that is not at its default; below 0 for none. */
    int getFirstChanged() const;

private:
    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID id, void** object) override;

    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }

    Steinberg::uint32 PLUGIN_API release() override { return 1; }

    Steinberg::tresult PLUGIN_API resizeView (Steinberg::IPlugView* asking, Steinberg::ViewRect* size) override;

    void connect (bool shouldConnect);
    void send (UINT message, WPARAM buttons, POINT at);

    Steinberg::IPtr<Vst::IComponent> component;
    Steinberg::IPtr<Vst::IEditController> controller;
    Steinberg::IPtr<Steinberg::IPlugView> view;
    HWND window = nullptr;
    HWND child = nullptr; // the module's
};

} // namespace kestreleq::test
