// The portable window handle and the SDL window it stands for.
#pragma once

#include "play/window_handle.h"

struct SDL_Window;

inline SDL_Window* NativeWindow(WindowHandle window) { return reinterpret_cast<SDL_Window*>(window); }
inline WindowHandle HandleOf(SDL_Window* window) { return reinterpret_cast<WindowHandle>(window); }
