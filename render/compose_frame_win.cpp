// The scenery buffer and the composition of a frame over it.
#include "render/frame_buffers.h"
#include "render/scenery_win.h"

void RenderScenery(DisplayWindow& window) {
    if (!window.sceneryDC) return;
    Gdiplus::Graphics graphics(window.sceneryDC);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.Clear(Gdiplus::Color(kSceneryClearColour));
    DrawScenery(graphics, {0, 0, window.width, window.height}, window.sceneryTheme);
}

void ComposeFrame(DisplayWindow& window, const Rect& dirty) {
    if (!window.frameDC || !window.sceneryDC) return;
    if (Width(dirty) < 1 || Height(dirty) < 1) return;

    // Restore the background under the dirty rectangle; the moving layers
    // are drawn over it with the scene.
    BitBlt(window.frameDC, dirty.left, dirty.top, Width(dirty), Height(dirty), window.sceneryDC,
           dirty.left, dirty.top, SRCCOPY);
}
