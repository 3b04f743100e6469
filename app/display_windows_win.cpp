// The display windows of Puffino.exe: the monitors as Windows lists them,
// one topmost, borderless window per monitor, and what the host asks of
// those windows.
#include <windows.h>

#include "app/host.h"
#include "app/host_platform.h"
#include "app/launch_monitor.h"
#include "app/shell_win.h"
#include "play/window_handle_win.h"

namespace {

constexpr wchar_t kLaunchMonitorVariable[] = L"TONKARI_LAUNCH_MONITOR";

Rect ToRect(const RECT& r) { return {r.left, r.top, r.right, r.bottom}; }

BOOL CALLBACK AddMonitor(HMONITOR monitor, HDC, LPRECT, LPARAM monitors) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    // An unreadable monitor gets no window.
    if (GetMonitorInfoW(monitor, &info)) reinterpret_cast<std::vector<Rect>*>(monitors)->push_back(ToRect(info.rcMonitor));
    return TRUE;
}

}  // namespace

std::vector<Rect> ListMonitors() {
    std::vector<Rect> monitors;
    EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&monitors));
    return monitors;
}

Rect VirtualScreen(const std::vector<Rect>&) {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    int width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    int height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    if (width < 1) width = GetSystemMetrics(SM_CXSCREEN);
    if (height < 1) height = GetSystemMetrics(SM_CYSCREEN);
    return {left, top, left + width, top + height};
}

bool ChooseLaunchMonitor(Rect& out) {
    wchar_t value[64] = {};
    const DWORD length = GetEnvironmentVariableW(kLaunchMonitorVariable, value, 64);
    // A longer value does not fit the buffer and is ignored like a bad one.
    if (length >= 1 && length <= 63 && ParseLaunchMonitorValue(std::wstring_view(value, length), out)) {
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

WindowHandle MakePlatformWindow(const Rect& screenRect, size_t index) {
    // The record's index travels with WM_CREATE's creation parameters.
    return HandleOf(CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"PuffinoWindow", L"Puffino",
                                    WS_POPUP | WS_VISIBLE, screenRect.left, screenRect.top, Width(screenRect),
                                    Height(screenRect), nullptr, nullptr, g_instance, reinterpret_cast<void*>(index)));
}

void HidePlatformWindow(WindowHandle window) {
    if (IsWindow(NativeWindow(window))) ShowWindow(NativeWindow(window), SW_HIDE);
}

void DestroyPlatformWindow(WindowHandle window) { DestroyWindow(NativeWindow(window)); }

uint32_t WindowDpi(WindowHandle window) { return GetDpiForWindow(NativeWindow(window)); }

void InvalidateWindow(WindowHandle window) { InvalidateRect(NativeWindow(window), nullptr, FALSE); }

void RaiseWindows() {
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.window) {
            SetWindowPos(NativeWindow(window.window), HWND_TOPMOST, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
    }
}

void BringToForeground(WindowHandle window) { SetForegroundWindow(NativeWindow(window)); }

void ReleasePointer() {
    // Losing the capture cancels any press through WM_CAPTURECHANGED.
    if (GetCapture()) ReleaseCapture();
    ClipCursor(nullptr);
}
