// The play field's operating-system services in Puffino.exe, with the
// Win32 calls behind them. Each is a thin translation; nothing here decides anything.
#include <windows.h>
#include <mmsystem.h>

#include "play/platform.h"
#include "play/window_handle_win.h"

uint32_t TickCount() {
    return GetTickCount();
}

bool LeftButtonDown() {
    // The high bit of the key state: the button is down.
    return (GetKeyState(VK_LBUTTON) & 0x8000) != 0;
}

void CaptureMouse(WindowHandle window) {
    SetCapture(NativeWindow(window));
}

WindowHandle MouseCaptureWindow() {
    return HandleOf(GetCapture());
}

void ReleaseMouseCapture() {
    ReleaseCapture();
}

void PlayWavImage(const uint8_t* image) {
    // SND_NODEFAULT: an image that cannot be played stays silent instead of
    // ringing the system's default sound. Without a sound device the call
    // fails quietly, and that is all.
    PlaySoundW(reinterpret_cast<LPCWSTR>(image), nullptr, SND_ASYNC | SND_NODEFAULT | SND_MEMORY);
}

void InvalidateClientRect(WindowHandle window, const Rect& client) {
    const RECT rect{client.left, client.top, client.right, client.bottom};
    InvalidateRect(NativeWindow(window), &rect, FALSE);
}
