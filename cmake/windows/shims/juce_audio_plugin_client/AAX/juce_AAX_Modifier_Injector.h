// Debian's +ds tarball removes modules/juce_audio_plugin_client/AAX; on Windows
// juce_Windowing_windows.cpp still includes this header when the plug-in client module is present.
#pragma once
#pragma GCC system_header

namespace juce
{
struct ModifierKeyProvider
{
    virtual ~ModifierKeyProvider() = default;
    virtual int getWin32Modifiers() const = 0;
};

struct ModifierKeyReceiver
{
    virtual ~ModifierKeyReceiver() = default;
    virtual void setModifierKeyProvider (ModifierKeyProvider*) = 0;
    virtual void removeModifierKeyProvider() = 0;
};
} // namespace juce
