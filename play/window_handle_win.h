// The portable window handle and the Windows window it stands for.
#pragma once

#include <windows.h>

#include "play/window_handle.h"

inline HWND NativeWindow(WindowHandle window) { return reinterpret_cast<HWND>(window); }
inline WindowHandle HandleOf(HWND window) { return reinterpret_cast<WindowHandle>(window); }
