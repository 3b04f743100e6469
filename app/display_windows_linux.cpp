// One borderless, always-on-top window per display; the home window on the
// launch display; the rebuild on display changes. SDL gives the displays in
// the display server's virtual-screen coordinates (the X root window's).
#include <SDL.h>

#include <cstdlib>
#include <cstring>

#include "app/display_windows.h"
#include "app/linux_shell.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/random.h"
#include "render/frame_buffers.h"
#include "settings/volume_clamp.h"

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

std::vector<Rect> DisplayRects() {
    std::vector<Rect> rects;
    const int count = SDL_GetNumVideoDisplays();
    for (int i = 0; i < count; ++i) {
        SDL_Rect bounds;
        // An unreadable display gets no window.
        if (SDL_GetDisplayBounds(i, &bounds) == 0 && bounds.w > 0 && bounds.h > 0) rects.push_back(ToRect(bounds));
    }
    return rects;
}

void ReadVirtualScreen(const std::vector<Rect>& displays) {
    Rect all{0, 0, 0, 0};
    for (size_t i = 0; i < displays.size(); ++i) all = i == 0 ? displays[i] : Union(all, displays[i]);
    g_virtualLeft = all.left;
    g_virtualTop = all.top;
    g_virtualWidth = Width(all);
    g_virtualHeight = Height(all);
}

DisplayWindow RecordFor(const Rect& screenRect) {
    DisplayWindow window;
    window.screenRect = screenRect;
    window.playRect = Offset(screenRect, -g_virtualLeft, -g_virtualTop);
    window.width = Width(screenRect);
    window.height = Height(screenRect);
    window.sceneryTheme = static_cast<uint32_t>(RandomInt(0, 4));
    return window;
}

}  // namespace

bool VideoDriverIs(const char* name) {
    const char* driver = SDL_GetCurrentVideoDriver();
    return driver && std::strcmp(driver, name) == 0;
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

void DestroyDisplayWindows() {
    for (DisplayWindow& window : g_displayWindows) {
        ReleaseWindowBuffers(window);
        if (window.hwnd) {
            ForgetWindowDirt(window.hwnd);
            SDL_DestroyWindow(window.hwnd);
        }
        window.hwnd = nullptr;
    }
    g_displayWindows.clear();
}

void CreateDisplayWindows() {
    g_mainWindow = nullptr;
    DestroyDisplayWindows();

    const std::vector<Rect> displays = DisplayRects();
    ReadVirtualScreen(displays);
    for (const Rect& display : displays) {
        DisplayWindow window = RecordFor(display);
        // The launch value is read afresh for every display; only its
        // top-left corner has to match.
        Rect launch;
        window.isMain = ChooseLaunchMonitor(launch) && display.left == launch.left && display.top == launch.top;
        g_displayWindows.push_back(window);
    }

    for (DisplayWindow& window : g_displayWindows) {
        window.hwnd = SDL_CreateWindow("Puffino", window.screenRect.left, window.screenRect.top, window.width,
                                       window.height, WindowFlags());
        // A failed window keeps its record with a null handle.
        if (!window.hwnd) continue;
        if (window.isMain) g_mainWindow = window.hwnd;  // with several, the last wins
        CreateWindowBuffers(window);
        RenderScenery(window);
    }
}

void RebuildDisplayWindows() {
    CancelPress();  // before the old windows and their capture go
    CreateDisplayWindows();
    RememberX11Layout();
    if (g_mainWindow) {
        g_dpiScale = DpiScaleFromDpi(X11DesktopDpi(g_mainWindow));
        g_shortcutTarget = g_mainWindow;
    }
    LayoutPlayField();
    StartTimers();
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.hwnd) AddWindowDirt(window.hwnd, {0, 0, window.width, window.height});
    }
}

void BringToForeground(WindowHandle window) {
    SDL_RaiseWindow(window);
    // Where no window manager acts on SDL's request (and none acts for an
    // override-redirect window) the last window shown keeps the focus.
    FocusX11Window(window);
}

void ReassertTopmost() {
    // Raised without taking the focus, as the Windows program's topmost
    // call does not activate.
    RaiseDisplayWindows();
    ClampMasterVolume();
}
