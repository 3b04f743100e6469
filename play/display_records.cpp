// The display-window records and the pure rules around them: play-field
// points and the DPI scale.
#include "play/display_records.h"

#include <algorithm>

std::vector<DisplayWindow> g_displayWindows;
WindowHandle g_homeWindow = nullptr;
int32_t g_virtualLeft = 0;
int32_t g_virtualTop = 0;
int32_t g_virtualWidth = 0;
int32_t g_virtualHeight = 0;
float g_dpiScale = 1.0f;

DisplayWindow* FindDisplayWindow(WindowHandle window) {
    if (!window) return nullptr;
    for (DisplayWindow& record : g_displayWindows) {
        if (record.window == window) return &record;
    }
    return nullptr;
}

void PlaceDisplayWindow(DisplayWindow& window, const Rect& screenRect) {
    window.screenRect = screenRect;
    window.playRect = Offset(screenRect, -g_virtualLeft, -g_virtualTop);
    window.width = Width(screenRect);
    window.height = Height(screenRect);
}

Point ClientToPlayField(const DisplayWindow& window, Point client) {
    return {window.playRect.left + client.x, window.playRect.top + client.y};
}

float DpiScaleFromDpi(uint32_t dpi) {
    if (dpi == 0) dpi = 96;
    return std::max(1.0f, static_cast<float>(dpi / 96.0));
}
