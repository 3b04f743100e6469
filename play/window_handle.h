// The window system's handle of one display window, opaque to portable
// code: it only stores, compares and passes it back to the platform layer,
// which turns it into its own (window_handle_win.h, window_handle_linux.h).
#pragma once

struct PlatformWindow;
using WindowHandle = PlatformWindow*;
