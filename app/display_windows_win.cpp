// One topmost, borderless window per monitor; the home window on the launch
// monitor; the rebuild on display changes.
#include <windows.h>

#include "app/display_windows.h"
#include "app/shell_win.h"
#include "app/window_proc_win.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/random.h"
#include "render/frame_buffers.h"
#include "settings/volume_clamp.h"

namespace {

constexpr wchar_t kLaunchMonitorVariable[] = L"TONKARI_LAUNCH_MONITOR";

Rect ToRect(const RECT& r) { return {r.left, r.top, r.right, r.bottom}; }

DisplayWindow RecordFor(const Rect& screenRect) {
    DisplayWindow window;
    window.screenRect = screenRect;
    window.playRect = Offset(screenRect, -g_virtualLeft, -g_virtualTop);
    window.width = Width(screenRect);
    window.height = Height(screenRect);
    return window;
}

BOOL CALLBACK AddMonitorWindow(HMONITOR monitor, HDC, LPRECT, LPARAM) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (!GetMonitorInfoW(monitor, &info)) return TRUE;  // unreadable: no window

    DisplayWindow window = RecordFor(ToRect(info.rcMonitor));
    // The launch value is read afresh for every monitor; only its top-left
    // corner has to match.
    MONITORINFO again{};
    again.cbSize = sizeof again;
    Rect launch;
    window.isMain = GetMonitorInfoW(monitor, &again) && ChooseLaunchMonitor(launch) &&
                    again.rcMonitor.left == launch.left && again.rcMonitor.top == launch.top;
    window.sceneryTheme = static_cast<uint32_t>(RandomInt(0, 4));
    g_displayWindows.push_back(window);
    return TRUE;
}

void ReadVirtualScreen() {
    g_virtualLeft = GetSystemMetrics(SM_XVIRTUALSCREEN);
    g_virtualTop = GetSystemMetrics(SM_YVIRTUALSCREEN);
    g_virtualWidth = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    g_virtualHeight = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    if (g_virtualWidth < 1) g_virtualWidth = GetSystemMetrics(SM_CXSCREEN);
    if (g_virtualHeight < 1) g_virtualHeight = GetSystemMetrics(SM_CYSCREEN);
}

}  // namespace

bool ChooseLaunchMonitor(Rect& out) {
    wchar_t value[64] = {};
    const DWORD length = GetEnvironmentVariableW(kLaunchMonitorVariable, value, 64);
    // A longer value does not fit the buffer and is ignored like a bad one.
    if (length >= 1 && length <= 63 &&
        ParseLaunchMonitorValue(std::wstring_view(value, length), out)) {
        return true;
    }
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(MonitorFromPoint(POINT{0, 0}, MONITOR_DEFAULTTOPRIMARY), &info)) {
        out = ToRect(info.rcMonitor);
        return true;
    }
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    out = {0, 0, width, height};
    return width >= 1 && height >= 1;
}

void DestroyDisplayWindows() {
    for (DisplayWindow& window : g_displayWindows) {
        ReleaseWindowBuffers(window);
        if (window.hwnd) DestroyWindow(window.hwnd);
        window.hwnd = nullptr;
    }
    g_displayWindows.clear();
}

void CreateDisplayWindows() {
    // Forget the home window before it goes: its WM_DESTROY ends play only
    // while it is the home window, and a rebuild must not end play.
    g_mainWindow = nullptr;
    DestroyDisplayWindows();

    ReadVirtualScreen();
    EnumDisplayMonitors(nullptr, nullptr, AddMonitorWindow, 0);
    if (g_displayWindows.empty()) {
        // No monitor enumerated: one window over the whole virtual screen.
        DisplayWindow window = RecordFor({g_virtualLeft, g_virtualTop, g_virtualLeft + g_virtualWidth,
                                          g_virtualTop + g_virtualHeight});
        window.isMain = true;
        window.sceneryTheme = static_cast<uint32_t>(RandomInt(0, 4));
        g_displayWindows.push_back(window);
    }

    for (size_t i = 0; i < g_displayWindows.size(); ++i) {
        const DisplayWindow& record = g_displayWindows[i];
        HWND hwnd = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"PuffinoWindow", L"Puffino",
                                    WS_POPUP | WS_VISIBLE, record.screenRect.left, record.screenRect.top,
                                    record.width, record.height, nullptr, nullptr, g_instance,
                                    reinterpret_cast<void*>(i));
        // Index again: creation sends messages, and a failed window keeps its
        // record with a null handle.
        DisplayWindow& window = g_displayWindows[i];
        window.hwnd = hwnd;
        if (!hwnd) continue;
        if (window.isMain) g_mainWindow = hwnd;  // with several, the last wins
        CreateWindowBuffers(window);
        RenderScenery(window);
    }
}

void RebuildDisplayWindows() {
    CancelPress();  // before the old windows and their capture go
    CreateDisplayWindows();
    if (g_mainWindow) {
        g_dpiScale = DpiScaleFromDpi(GetDpiForWindow(g_mainWindow));
        g_shortcutTarget = g_mainWindow;
    }
    LayoutPlayField();
    StartTimers();
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.hwnd) InvalidateRect(window.hwnd, nullptr, FALSE);
    }
}

void ReassertTopmost() {
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.hwnd) {
            SetWindowPos(window.hwnd, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
    }
    ClampMasterVolume();
}
