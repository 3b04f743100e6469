// The display-window records and the pure rules around them: play-field
// points, the DPI scale and the launch-monitor value.
#include "app/display_windows.h"

#include <algorithm>
#include <climits>
#include <cwchar>
#include <string>

std::vector<DisplayWindow> g_displayWindows;
WindowHandle g_mainWindow = nullptr;
int32_t g_virtualLeft = 0;
int32_t g_virtualTop = 0;
int32_t g_virtualWidth = 0;
int32_t g_virtualHeight = 0;
float g_dpiScale = 1.0f;
WindowHandle g_shortcutTarget = nullptr;

DisplayWindow* FindDisplayWindow(WindowHandle hwnd) {
    if (!hwnd) return nullptr;
    for (DisplayWindow& window : g_displayWindows) {
        if (window.hwnd == hwnd) return &window;
    }
    return nullptr;
}

Point ClientToPlayField(const DisplayWindow& window, Point client) {
    return {window.playRect.left + client.x, window.playRect.top + client.y};
}

float DpiScaleFromDpi(uint32_t dpi) {
    if (dpi == 0) dpi = 96;
    return std::max(1.0f, static_cast<float>(dpi / 96.0));
}

namespace {

// wcstol as Windows has it: long is 32 bits there, so out-of-range numbers
// saturate at the 32-bit limits, whatever the width of long here.
int32_t ParseLong(const wchar_t* text, wchar_t** end) {
    long value = std::wcstol(text, end, 10);
    return static_cast<int32_t>(std::clamp<long>(value, INT32_MIN, INT32_MAX));
}

}  // namespace

bool ParseLaunchMonitorValue(std::wstring_view value, Rect& out) {
    // The environment read uses a 64-character buffer: 1..63 characters fit.
    if (value.empty() || value.size() > 63) return false;
    const std::wstring text(value);

    int32_t numbers[4] = {};
    const wchar_t* cursor = text.c_str();
    for (int i = 0; i < 4; ++i) {
        wchar_t* end = nullptr;
        numbers[i] = ParseLong(cursor, &end);
        if (i < 3) {
            // The comma must follow the number at once; a field without
            // digits leaves end where it began and reads as 0.
            if (*end != L',') return false;
            cursor = end + 1;
        } else if (*end != L'\0' && *end != L' ') {
            return false;  // only a space may end the fourth number early
        }
    }
    const Rect rect{numbers[0], numbers[1], numbers[2], numbers[3]};
    if (rect.right <= rect.left || rect.bottom <= rect.top) return false;
    out = rect;
    return true;
}
