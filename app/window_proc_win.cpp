// Turns window-system events into play-field operations: pointer input as
// play-field points, the frame and topmost timers, painting from the frame
// buffer, DPI and display changes, and the end of play.
#include "app/window_proc_win.h"

#include <vector>

#include "app/host.h"
#include "app/host_platform.h"
#include "app/keyboard_guard_win.h"
#include "app/pointer_points.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/window_handle_win.h"
#include "render/frame_buffers.h"
#include "render/window_buffers_win.h"

namespace {

constexpr UINT kTopmostPeriod = 1500;  // ms
constexpr UINT kFramePeriod = 33;      // ms

Rect ToRect(const RECT& r) { return {r.left, r.top, r.right, r.bottom}; }

void Paint(HWND hwnd) {
    DisplayWindow* window = FindDisplayWindow(HandleOf(hwnd));
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(hwnd, &paint);
    // A window without a record (mid-rebuild) or without buffers is still
    // validated, but shows nothing of its own.
    if (window && FrameDC(*window)) {
        const Rect dirty = ToRect(paint.rcPaint);
        ComposeFrame(*window, dirty);
        if (Width(dirty) > 0 && Height(dirty) > 0) {
            BitBlt(dc, dirty.left, dirty.top, Width(dirty), Height(dirty), FrameDC(*window), dirty.left,
                   dirty.top, SRCCOPY);
        }
    }
    EndPaint(hwnd, &paint);
}

void MouseDown(HWND hwnd, LPARAM lParam) {
    // A touch arrives as WM_TOUCH; the button-down the system synthesizes
    // from it must not press a second time.
    if (IsTouchSynthesizedMouse(static_cast<uintptr_t>(GetMessageExtraInfo()))) return;
    PressInWindow(HandleOf(hwnd), MouseClientPoint(static_cast<uintptr_t>(lParam)), false);
}

void Touch(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    const auto input = reinterpret_cast<HTOUCHINPUT>(lParam);
    const UINT count = LOWORD(wParam);
    if (FindDisplayWindow(HandleOf(hwnd)) && count > 0) {
        std::vector<TOUCHINPUT> contacts(count);
        // A batch that cannot be read is dropped.
        if (GetTouchInputInfo(input, count, contacts.data(), sizeof(TOUCHINPUT))) {
            DeliverTouchContacts(hwnd, contacts.data(), count);
        }
    }
    // Closed on every path: the message never reaches DefWindowProcW, which
    // would otherwise free the handle.
    CloseTouchInputHandle(input);
}

void DpiChanged(HWND hwnd, LPARAM lParam) {
    if (!FindDisplayWindow(HandleOf(hwnd))) return;
    const RECT suggested = *reinterpret_cast<const RECT*>(lParam);
    SetWindowPos(hwnd, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);

    DisplayWindow* window = FindDisplayWindow(HandleOf(hwnd));  // moving sends messages
    if (!window) return;
    RECT placed;
    GetWindowRect(hwnd, &placed);
    DisplayWindowMoved(*window, ToRect(placed));
}

void CaptureChanged(HWND gainingWindow) {
    if (g_playField.pressStartTick == 0) return;    // no press to lose
    if (HandleOf(gainingWindow) == g_homeWindow) return;  // our own capture
    CancelPress();
}

}  // namespace

void DeliverTouchContacts(HWND hwnd, const TOUCHINPUT* contacts, UINT count) {
    for (UINT i = 0; i < count; ++i) {
        // Looked up afresh: a press may end play and take the windows along.
        if (!FindDisplayWindow(HandleOf(hwnd))) return;
        const Point screen = TouchScreenPixel(contacts[i].x, contacts[i].y);
        POINT client{screen.x, screen.y};
        ScreenToClient(hwnd, &client);
        // Moves and contact ids are not used: any lifted finger ends the press.
        if (contacts[i].dwFlags & TOUCHEVENTF_DOWN) {
            PressInWindow(HandleOf(hwnd), {client.x, client.y}, true);
        } else if (contacts[i].dwFlags & TOUCHEVENTF_UP) {
            PointerUp();
        }
    }
}

void StartTimers() {
    if (!g_homeWindow) return;
    SetTimer(NativeWindow(g_homeWindow), kTopmostTimer, kTopmostPeriod, nullptr);
    SetTimer(NativeWindow(g_homeWindow), kFrameTimer, kFramePeriod, nullptr);
}

void StopTimers() {
    if (!g_homeWindow) return;
    KillTimer(NativeWindow(g_homeWindow), kTopmostTimer);
    KillTimer(NativeWindow(g_homeWindow), kFrameTimer);
}

void RegisterDisplayWindowClass(HINSTANCE instance) {
    HICON icon = LoadIconW(instance, MAKEINTRESOURCEW(101));
    if (!icon) icon = LoadIconW(nullptr, IDI_APPLICATION);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DisplayWindowProc;
    windowClass.hInstance = instance;
    windowClass.hIcon = icon;
    windowClass.hIconSm = icon;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    windowClass.lpszClassName = L"PuffinoWindow";
    RegisterClassExW(&windowClass);
}

LRESULT CALLBACK DisplayWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        // Touch as WM_TOUCH rather than gestures; without touch support the
        // call fails and the mouse path alone remains.
        RegisterTouchWindow(hwnd, 0);
        return 0;
    case WM_DESTROY:
        if (HandleOf(hwnd) == g_homeWindow) {
            StopTimers();
            PostQuit();
        }
        return 0;
    case WM_PAINT:
        Paint(hwnd);
        return 0;
    case WM_CLOSE:
        // Any display window: the teardown after the loop destroys them all.
        PostQuitMessage(0);
        return 0;
    case WM_ERASEBKGND:
        return 1;  // every pixel comes from the frame buffer
    case WM_DISPLAYCHANGE:
        // This window is gone after the rebuild; touch nothing of it.
        RebuildDisplayWindows();
        StartTimers();
        return 0;
    case WM_TIMER:
        if (wParam == kTopmostTimer) {
            ReassertTopmost();
        } else if (wParam == kFrameTimer) {
            AdvanceFrame();  // invalidates what moved; painting waits for WM_PAINT
        }
        return 0;
    case WM_LBUTTONDOWN:
        MouseDown(hwnd, lParam);
        return 0;
    case WM_LBUTTONUP:
        // Not filtered: a release synthesized from touch ends nothing twice.
        ReleaseInWindow(HandleOf(hwnd));
        return 0;
    case WM_CAPTURECHANGED:
        CaptureChanged(reinterpret_cast<HWND>(lParam));
        return 0;
    case WM_TOUCH:
        Touch(hwnd, wParam, lParam);
        return 0;
    case WM_DPICHANGED:
        DpiChanged(hwnd, lParam);
        return 0;
    case WM_GUARDED_KEY:
        // Other reported keys were swallowed by the guard and do nothing.
        if (wParam == VK_F4) EndPlay();
        return 0;
    default:
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}
