#if defined(__linux__)
#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1
#endif

#include "editor/header/ClipboardText.h"

#include <juce_gui_basics/juce_gui_basics.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace kestreleq
{

bool isTextOnClipboard()
{
#ifdef _WIN32
    return IsClipboardFormatAvailable (CF_UNICODETEXT) != FALSE;
#elif defined(__linux__)
    auto* const system = juce::XWindowSystem::getInstanceWithoutCreating();
    auto* const display = system != nullptr ? system->getDisplay() : nullptr;

    if (display == nullptr)
        return false;

    // The two places from which the framework reads, in its order.
    const auto& symbols = *juce::X11Symbols::getInstance();
    const auto clipboard = symbols.xInternAtom (display, "CLIPBOARD", False);
    return symbols.xGetSelectionOwner (display, clipboard) != None ||
        symbols.xGetSelectionOwner (display, XA_PRIMARY) != None;
#else
    return juce::SystemClipboard::getTextFromClipboard().isNotEmpty();
#endif
}

} // namespace kestreleq
