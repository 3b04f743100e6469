// A display window's two off-screen buffers in Puffino.exe: memory DCs with
// screen-compatible bitmaps selected into them.
#pragma once

#include <windows.h>

#include "play/display_records.h"

struct WindowBuffers {
    HDC frameDC = nullptr;  // back buffer into which frames are composed
    HBITMAP frameBitmap = nullptr;
    HGDIOBJ frameOldBitmap = nullptr;  // put back before frameDC is deleted
    HDC sceneryDC = nullptr;           // this window's pre-rendered landscape
    HBITMAP sceneryBitmap = nullptr;
    HGDIOBJ sceneryOldBitmap = nullptr;
};

// The window's buffer DCs; null while it has no buffers.
inline HDC FrameDC(const DisplayWindow& window) { return window.buffers ? window.buffers->frameDC : nullptr; }
inline HDC SceneryDC(const DisplayWindow& window) { return window.buffers ? window.buffers->sceneryDC : nullptr; }
