// Memory DCs and screen-compatible bitmaps behind each display window.
#include <windows.h>

#include "render/frame_buffers.h"
#include "render/window_buffers_win.h"
#include "play/window_handle_win.h"

namespace {

void CreateBuffer(HDC screenDC, int width, int height, HDC& dc, HBITMAP& bitmap, HGDIOBJ& oldBitmap) {
    dc = CreateCompatibleDC(screenDC);
    bitmap = CreateCompatibleBitmap(screenDC, width, height);
    oldBitmap = SelectObject(dc, bitmap);
}

void ReleaseBuffer(HDC& dc, HBITMAP& bitmap, HGDIOBJ& oldBitmap) {
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
    if (!window.window || window.width < 1 || window.height < 1) return;

    // The creation calls are not checked: whatever stays null is skipped
    // by the painting.
    window.buffers = std::make_shared<WindowBuffers>();
    WindowBuffers& buffers = *window.buffers;
    HDC screenDC = GetDC(NativeWindow(window.window));
    CreateBuffer(screenDC, window.width, window.height, buffers.frameDC, buffers.frameBitmap, buffers.frameOldBitmap);
    CreateBuffer(screenDC, window.width, window.height, buffers.sceneryDC, buffers.sceneryBitmap,
                 buffers.sceneryOldBitmap);
    ReleaseDC(NativeWindow(window.window), screenDC);
}

void ReleaseWindowBuffers(DisplayWindow& window) {
    if (!window.buffers) return;
    WindowBuffers& buffers = *window.buffers;
    ReleaseBuffer(buffers.frameDC, buffers.frameBitmap, buffers.frameOldBitmap);
    ReleaseBuffer(buffers.sceneryDC, buffers.sceneryBitmap, buffers.sceneryOldBitmap);
    window.buffers.reset();
}
