// The Linux edition's one event loop: SDL's events become play-field
// operations (pointer input as play-field points, keys through the guard,
// display changes), the frame and topmost timers run between them, and
// whatever was invalidated is painted before the loop waits again.
#include <SDL.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "app/host.h"
#include "app/host_platform.h"
#include "app/pointer_points.h"
#include "app/repeating_timer.h"
#include "app/shell_linux.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/window_handle_linux.h"

namespace {

constexpr uint32_t kTopmostPeriod = 1500;  // ms
constexpr uint32_t kFramePeriod = 33;      // ms

RepeatingTimer g_topmostTimer;
RepeatingTimer g_frameTimer;
bool g_quitPosted = false;
bool g_displaysChanged = false;
// Where the time from each frame tick to its pixels on the screen goes, one
// line of microseconds per tick, when PUFFINO_FRAME_TIMES names a file: the
// soak measures real play with it. Unset, nothing is written.
FILE* g_frameTimes = nullptr;

WindowHandle HandleOfId(Uint32 windowId) { return HandleOf(SDL_GetWindowFromID(windowId)); }
DisplayWindow* WindowOf(Uint32 windowId) { return FindDisplayWindow(HandleOfId(windowId)); }

void MouseButton(const SDL_MouseButtonEvent& event) {
    if (event.button != SDL_BUTTON_LEFT) return;
    if (event.type == SDL_MOUSEBUTTONUP) {
        // Not filtered: a release synthesized from touch ends nothing twice.
        ReleaseInWindow(HandleOfId(event.windowID));
        return;
    }
    // A touch arrives as finger events; the press SDL makes from it must
    // not press a second time.
    if (event.which == SDL_TOUCH_MOUSEID) return;
    PressInWindow(HandleOfId(event.windowID), {event.x, event.y}, false);
}

void Finger(const SDL_TouchFingerEvent& event) {
    const DisplayWindow* window = WindowOf(event.windowID);
    if (!window) return;
    // Moves and finger ids are not used: any lifted finger ends the press.
    if (event.type == SDL_FINGERDOWN) {
        PressInWindow(window->window, TouchClientPoint(event.x, event.y, window->width, window->height), true);
    } else if (event.type == SDL_FINGERUP) {
        PointerUp();
    }
}

// SDL tells no loss of the pointer capture, and its focus events come and go
// with the keyboard grab itself, so they end no press: a press whose release
// another program took ends at the next frame tick, which asks the button.
void WindowEvent(const SDL_WindowEvent& event) {
    DisplayWindow* window = WindowOf(event.windowID);
    if (!window) return;
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        AddWindowDirt(window->window, {0, 0, window->width, window->height});
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        GrabKeyboardFor(window->window);  // SDL's grab follows the focus
        break;
    case SDL_WINDOWEVENT_CLOSE:
        PostQuit();  // a window manager's close: teardown after the loop
        break;
    default:
        break;
    }
}

void HandleEvent(const SDL_Event& event) {
    switch (event.type) {
    case SDL_QUIT: PostQuit(); return;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: MouseButton(event.button); return;
    case SDL_FINGERDOWN:
    case SDL_FINGERUP: Finger(event.tfinger); return;
    case SDL_WINDOWEVENT: WindowEvent(event.window); return;
    case SDL_KEYDOWN:
    case SDL_KEYUP: HandleKeyEvent(event); return;
    case SDL_DISPLAYEVENT: g_displaysChanged = true; return;
    default: return;
    }
}

// SDL reads the displays when its video part starts: after a change the
// windows go, the video part starts again and the windows are made anew.
void RefreshDisplays() {
    g_displaysChanged = false;
    CancelPress();
    g_homeWindow = nullptr;
    DestroyDisplayWindows();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    SDL_InitSubSystem(SDL_INIT_VIDEO);
    RebuildDisplayWindows();
    // The new home window is in front and holds the keyboard, as the old
    // one did: without the focus SDL would not grab for it.
    if (g_homeWindow) BringToForeground(g_homeWindow);
    GrabKeyboardFor(g_homeWindow);
}

uint64_t Microseconds(uint64_t counts) { return counts * 1000000 / SDL_GetPerformanceFrequency(); }

void FrameTick() {
    const uint64_t start = SDL_GetPerformanceCounter();
    // Another window that came up over Puffino's goes under again within
    // a frame; at most once a frame, so that a program that raises itself
    // in answer cannot keep the loop busy.
    if (OthersRestacked()) RaiseWindows();
    AdvanceFrame();  // invalidates what moved
    PaintWindows();
    if (g_frameTimes) {
        std::fprintf(g_frameTimes, "%llu\n",
                     static_cast<unsigned long long>(Microseconds(SDL_GetPerformanceCounter() - start)));
    }
}

void RunTimers() {
    const uint32_t now = TickCount();
    if (TimerFires(g_topmostTimer, now)) {
        // A display whose mode or place changed is noticed here: SDL reports
        // displays coming and going, not their new layout.
        if (X11LayoutChanged()) RefreshDisplays();
        ReassertTopmost();
        RenewKeyboardGuard();
    }
    if (TimerFires(g_frameTimer, now)) FrameTick();
}

int WaitMilliseconds() {
    const uint32_t now = TickCount();
    const uint32_t wait = std::min(MillisecondsUntil(g_topmostTimer, now), MillisecondsUntil(g_frameTimer, now));
    return wait == UINT32_MAX ? -1 : static_cast<int>(wait);
}

}  // namespace

void StartTimers() {
    if (!g_homeWindow) return;
    const uint32_t now = TickCount();
    SetRepeatingTimer(g_topmostTimer, kTopmostPeriod, now);
    SetRepeatingTimer(g_frameTimer, kFramePeriod, now);
}

void StopTimers() {
    g_topmostTimer.running = false;
    g_frameTimer.running = false;
}

void PostQuit() { g_quitPosted = true; }

void RunEventLoop() {
    if (const char* file = std::getenv("PUFFINO_FRAME_TIMES"); file && *file) g_frameTimes = std::fopen(file, "a");
    SDL_Event event;
    while (!g_quitPosted) {
        if (SDL_WaitEventTimeout(&event, WaitMilliseconds())) {
            HandleEvent(event);
            while (!g_quitPosted && SDL_PollEvent(&event)) HandleEvent(event);
        }
        if (g_quitPosted) break;
        PumpX11Desktop();  // the held keys, and other windows' stacking
        if (g_quitPosted) break;
        if (g_displaysChanged) RefreshDisplays();
        RunTimers();
        PaintWindows();
    }
    if (g_frameTimes) std::fclose(g_frameTimes);
    g_frameTimes = nullptr;
}
