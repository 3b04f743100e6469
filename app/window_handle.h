// The window system's handle of one display window: the Win32 window in
// Puffino.exe, the SDL window in the Linux edition. Portable code only
// stores, compares and passes it back to the platform layer.
#pragma once

#if defined(_WIN32)
struct HWND__;
using WindowHandle = HWND__*;
#else
struct SDL_Window;
using WindowHandle = SDL_Window*;
#endif
