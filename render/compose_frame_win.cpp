// The scenery buffer and the composition of a frame over it.
#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include "render/frame_buffers.h"

void RenderScenery(DisplayWindow& window) {
    if (!window.sceneryDC) return;
    Gdiplus::Graphics graphics(window.sceneryDC);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.Clear(Gdiplus::Color(kSceneryClearColour));
    // The landscapes join with the scenery.
}

void ComposeFrame(DisplayWindow& window, const Rect& dirty) {
    if (!window.frameDC || !window.sceneryDC) return;
    if (Width(dirty) < 1 || Height(dirty) < 1) return;

    // Restore the background under the dirty rectangle; the moving layers
    // are drawn over it with the scene.
    BitBlt(window.frameDC, dirty.left, dirty.top, Width(dirty), Height(dirty), window.sceneryDC,
           dirty.left, dirty.top, SRCCOPY);
}
