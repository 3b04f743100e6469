// The full-screen windows, one per monitor, and the play-field coordinate
// space they share. The records are portable so that the play field and the
// scene can read them natively; creating and destroying the windows is the
// Win32 layer's (display_windows_win.cpp).
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/geometry.h"
#include "app/window_handle.h"

#if defined(_WIN32)
// Win32 handle types as the Windows headers declare them, so that portable
// code can hold them without including those headers.
struct HDC__;
struct HBITMAP__;
#else
struct _cairo_surface;  // cairo_surface_t
#endif

struct DisplayWindow {
    Rect playRect;    // the monitor in play-field coordinates
    Rect screenRect;  // the monitor (later: the window) in screen coordinates
    WindowHandle hwnd = nullptr;
#if defined(_WIN32)
    HDC__* frameDC = nullptr;  // back buffer into which frames are composed
    HBITMAP__* frameBitmap = nullptr;
    void* frameOldBitmap = nullptr;  // put back before frameDC is deleted
    HDC__* sceneryDC = nullptr;      // this window's pre-rendered landscape
    HBITMAP__* sceneryBitmap = nullptr;
    void* sceneryOldBitmap = nullptr;
#else
    _cairo_surface* frameSurface = nullptr;    // back buffer, ARGB32 image
    _cairo_surface* scenerySurface = nullptr;  // the pre-rendered landscape
#endif
    int32_t width = 0;   // pixels
    int32_t height = 0;  // pixels
    uint32_t sceneryTheme = 0;  // 0..4, drawn at random per record
    bool isMain = false;        // on the launch (home) monitor
};

// One record per monitor, in enumeration order; rebuilt on display changes.
extern std::vector<DisplayWindow> g_displayWindows;
// The home window; the timers live on it. Null while there is none.
extern WindowHandle g_mainWindow;
// The virtual screen in screen coordinates: its top-left corner is the
// play-field origin.
extern int32_t g_virtualLeft;
extern int32_t g_virtualTop;
extern int32_t g_virtualWidth;
extern int32_t g_virtualHeight;
// The home window's DPI / 96, never below 1.0; every design size is
// multiplied by it.
extern float g_dpiScale;
// Where the keyboard guard reports guarded keys: the home window of the
// last rebuild that had one; cleared when play ends.
extern WindowHandle g_shortcutTarget;

// The record of a window, found by a linear search; null for a window that
// is not (or no longer) a display window.
DisplayWindow* FindDisplayWindow(WindowHandle hwnd);

// A client point of the window as a play-field point.
Point ClientToPlayField(const DisplayWindow& window, Point client);

// The scale for a window's DPI: a DPI of 0 (a failed query) counts as 96,
// and the scale never drops below 1.0.
float DpiScaleFromDpi(uint32_t dpi);

// Parses a "TONKARI_LAUNCH_MONITOR" value: four comma-separated integers
// left,top,right,bottom in screen coordinates, optionally followed by a
// space and anything. Values of no or more than 63 characters, malformed
// values and empty rectangles are refused (false).
bool ParseLaunchMonitorValue(std::wstring_view value, Rect& out);

// Win32 layer, called on the main thread only.
void RebuildDisplayWindows();  // at start-up and on WM_DISPLAYCHANGE
void CreateDisplayWindows();   // destroys the old windows, makes new ones
// Releases the buffers of every display window, destroys the windows and
// empties the list; what becomes of g_mainWindow is the caller's business.
void DestroyDisplayWindows();
bool ChooseLaunchMonitor(Rect& out);
void ReassertTopmost();  // every window topmost again, then the volume clamp
