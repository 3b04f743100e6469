// The display windows of the Linux edition: the displays as SDL lists them
// (in the display server's virtual-screen coordinates, the X root window's),
// one borderless, always-on-top window per display, and what the host asks
// of those windows.
#include <SDL.h>

#include <cstdlib>
#include <cstring>

#include "app/host.h"
#include "app/host_platform.h"
#include "app/launch_monitor.h"
#include "app/shell_linux.h"
#include "play/window_handle_linux.h"

namespace {

constexpr char kLaunchMonitorVariable[] = "TONKARI_LAUNCH_MONITOR";
constexpr Uint32 kWindowFlags =
    SDL_WINDOW_BORDERLESS | SDL_WINDOW_ALWAYS_ON_TOP | SDL_WINDOW_SKIP_TASKBAR | SDL_WINDOW_SHOWN;

Rect ToRect(const SDL_Rect& r) { return {r.x, r.y, r.x + r.w, r.y + r.h}; }

// A Wayland window cannot place itself: there each one is full screen on
// the output it is made on (SDL takes the display under the window's
// middle), and the compositor keeps it above that output's other windows.
Uint32 WindowFlags() {
    return VideoDriverIs("wayland") ? kWindowFlags | SDL_WINDOW_FULLSCREEN_DESKTOP : kWindowFlags;
}

}  // namespace

bool VideoDriverIs(const char* name) {
    const char* driver = SDL_GetCurrentVideoDriver();
    return driver && std::strcmp(driver, name) == 0;
}

std::vector<Rect> ListMonitors() {
    // The layout the windows are made for, against which the topmost tick
    // compares the X server's.
    RememberX11Layout();
    std::vector<Rect> rects;
    const int count = SDL_GetNumVideoDisplays();
    for (int i = 0; i < count; ++i) {
        SDL_Rect bounds;
        // An unreadable display gets no window.
        if (SDL_GetDisplayBounds(i, &bounds) == 0 && bounds.w > 0 && bounds.h > 0) rects.push_back(ToRect(bounds));
    }
    return rects;
}

Rect VirtualScreen(const std::vector<Rect>& monitors) {
    Rect all{0, 0, 0, 0};
    for (size_t i = 0; i < monitors.size(); ++i) all = i == 0 ? monitors[i] : Union(all, monitors[i]);
    return all;
}

bool ChooseLaunchMonitor(Rect& out) {
    const char* value = std::getenv(kLaunchMonitorVariable);
    // The same 63-character limit as the Windows program's buffer; the value
    // is ASCII digits, commas and spaces, so bytes are characters here.
    if (value && ParseLaunchMonitorValue(std::wstring(value, value + std::strlen(value)), out)) return true;
    // Else the primary display, which SDL lists first.
    SDL_Rect bounds;
    if (SDL_GetNumVideoDisplays() < 1 || SDL_GetDisplayBounds(0, &bounds) != 0) return false;
    out = ToRect(bounds);
    return bounds.w > 0 && bounds.h > 0;
}

WindowHandle MakePlatformWindow(const Rect& screenRect, size_t) {
    return HandleOf(SDL_CreateWindow("Puffino", screenRect.left, screenRect.top, Width(screenRect),
                                     Height(screenRect), WindowFlags()));
}

void HidePlatformWindow(WindowHandle window) { SDL_HideWindow(NativeWindow(window)); }

void DestroyPlatformWindow(WindowHandle window) {
    ForgetWindowDirt(window);
    SDL_DestroyWindow(NativeWindow(window));
}

uint32_t WindowDpi(WindowHandle window) { return X11DesktopDpi(window); }

void InvalidateWindow(WindowHandle window) {
    const DisplayWindow* record = FindDisplayWindow(window);
    if (record) AddWindowDirt(window, {0, 0, record->width, record->height});
}

void BringToForeground(WindowHandle window) {
    SDL_RaiseWindow(NativeWindow(window));
    // Where no window manager acts on SDL's request (and none acts for an
    // override-redirect window) the last window shown keeps the focus.
    FocusX11Window(window);
}

// The press's capture goes with CancelPress; there is no cursor clip.
void ReleasePointer() {}
