// The end of play: shared by the finish button and Alt+F4.
#include "app/shell_win.h"

#include "app/display_windows.h"
#include "app/keyboard_guard_win.h"
#include "app/shell.h"
#include "app/window_proc_win.h"

HINSTANCE g_instance = nullptr;

void EndPlay() {
    // The finish button and Alt+F4 can both arrive in one burst.
    if (g_playEnded) return;
    g_playEnded = true;

    if (g_mainWindow) {
        KillTimer(g_mainWindow, kTopmostTimer);
        KillTimer(g_mainWindow, kFrameTimer);
    }
    // The guard goes before the windows do, so that system shortcuts work
    // again as soon as the windows disappear.
    RemoveKeyboardGuard();
    g_shortcutTarget = nullptr;
    // Losing the capture cancels any press through WM_CAPTURECHANGED.
    if (GetCapture()) ReleaseCapture();
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.hwnd && IsWindow(window.hwnd)) ShowWindow(window.hwnd, SW_HIDE);
    }
    ClipCursor(nullptr);
    // Destroying the home window kills its timers again and posts the quit
    // message from its WM_DESTROY; the explicit post below covers the case
    // without a home window.
    DestroyDisplayWindows();
    g_mainWindow = nullptr;
    PostQuitMessage(0);
}
