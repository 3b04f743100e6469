// The full-screen windows, one per monitor, as the play field sees them, and
// the play-field coordinate space they share. The host makes and destroys
// the windows (app/host.h); the render backends keep each window's drawing
// buffers (render/window_buffers_*.h).
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "play/geometry.h"
#include "play/window_handle.h"

struct WindowBuffers;  // the render backend's, one kind per edition

struct DisplayWindow {
    Rect playRect;    // the monitor in play-field coordinates
    Rect screenRect;  // the monitor (later: the window) in screen coordinates
    WindowHandle window = nullptr;
    std::shared_ptr<WindowBuffers> buffers;  // the frame and scenery buffers, while made
    int32_t width = 0;   // pixels
    int32_t height = 0;  // pixels
    uint32_t sceneryTheme = 0;  // 0..4, drawn at random per record
    bool home = false;          // on the launch (home) monitor
};

// One record per monitor, in enumeration order; rebuilt on display changes.
extern std::vector<DisplayWindow> g_displayWindows;
// The home window; the timers live on it. Null while there is none.
extern WindowHandle g_homeWindow;
// The virtual screen in screen coordinates: its top-left corner is the
// play-field origin.
extern int32_t g_virtualLeft;
extern int32_t g_virtualTop;
extern int32_t g_virtualWidth;
extern int32_t g_virtualHeight;
// The home window's DPI / 96, never below 1.0; every design size is
// multiplied by it.
extern float g_dpiScale;

// The record of a window, found by a linear search; null for a window that
// is not (or no longer) a display window.
DisplayWindow* FindDisplayWindow(WindowHandle window);

// Places a record on a monitor (or a moved window) given in screen
// coordinates; the virtual-screen origin is not read again.
void PlaceDisplayWindow(DisplayWindow& window, const Rect& screenRect);

// A client point of the window as a play-field point.
Point ClientToPlayField(const DisplayWindow& window, Point client);

// The scale for a window's DPI: a DPI of 0 (a failed query) counts as 96,
// and the scale never drops below 1.0.
float DpiScaleFromDpi(uint32_t dpi);
