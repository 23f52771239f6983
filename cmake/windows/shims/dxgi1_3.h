#pragma once
#pragma GCC system_header
#include_next <dxgi1_3.h>
// Wine 8: IDXGIOutput::WaitForVBlank is a stub that returns E_NOTIMPL. JUCE's VBlankThread looks at its
// exit flag and repaints only after S_OK, so nothing is repainted and the thread never ends. Used inside
// "if (output->WaitForVBlank() == S_OK)" in juce_VBlank_windows.cpp, this sleeps 16 ms instead of failing.
#define WaitForVBlank() WaitForVBlank() == S_OK || (sleep (16), S_OK)
