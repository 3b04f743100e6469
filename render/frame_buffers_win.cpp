// Memory DCs and screen-compatible bitmaps behind each display window.
#include <windows.h>

#include "render/frame_buffers.h"

namespace {

void CreateBuffer(HDC screenDC, int width, int height, HDC__*& dc, HBITMAP__*& bitmap,
                  void*& oldBitmap) {
    dc = CreateCompatibleDC(screenDC);
    bitmap = CreateCompatibleBitmap(screenDC, width, height);
    oldBitmap = SelectObject(dc, bitmap);
}

void ReleaseBuffer(HDC__*& dc, HBITMAP__*& bitmap, void*& oldBitmap) {
    if (dc) {
        if (bitmap && oldBitmap) SelectObject(dc, oldBitmap);
        DeleteDC(dc);
        dc = nullptr;
        oldBitmap = nullptr;
    }
    if (bitmap) {
        DeleteObject(bitmap);
        bitmap = nullptr;
    }
}

}  // namespace

void CreateWindowBuffers(DisplayWindow& window) {
    ReleaseWindowBuffers(window);
    if (!window.hwnd || window.width < 1 || window.height < 1) return;

    // The creation calls are not checked: whatever stays null is skipped
    // by the painting.
    HDC screenDC = GetDC(window.hwnd);
    CreateBuffer(screenDC, window.width, window.height, window.frameDC, window.frameBitmap,
                 window.frameOldBitmap);
    CreateBuffer(screenDC, window.width, window.height, window.sceneryDC, window.sceneryBitmap,
                 window.sceneryOldBitmap);
    ReleaseDC(window.hwnd, screenDC);
}

void ReleaseWindowBuffers(DisplayWindow& window) {
    ReleaseBuffer(window.frameDC, window.frameBitmap, window.frameOldBitmap);
    ReleaseBuffer(window.sceneryDC, window.sceneryBitmap, window.sceneryOldBitmap);
}
