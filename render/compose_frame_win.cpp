// The scenery buffer and the composition of a frame over it, through GDI+.
#include "app/display_windows.h"
#include "render/canvas_win.h"
#include "render/frame_buffers.h"
#include "render/frame_composition.h"
#include "render/scenery.h"

void RenderScenery(DisplayWindow& window) {
    if (!window.sceneryDC) return;
    Gdiplus::Graphics graphics(window.sceneryDC);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.Clear(Gdiplus::Color(kSceneryClearColour));
    Canvas canvas{graphics};
    DrawScenery(canvas, {0, 0, window.width, window.height}, window.sceneryTheme);
}

void ComposeFrame(DisplayWindow& window, const Rect& dirty) {
    if (!window.frameDC || !window.sceneryDC) return;
    if (Width(dirty) < 1 || Height(dirty) < 1) return;

    // The landscape comes back under the dirty rectangle first, so nothing
    // of an earlier frame survives where things have moved on.
    BitBlt(window.frameDC, dirty.left, dirty.top, Width(dirty), Height(dirty), window.sceneryDC, dirty.left,
           dirty.top, SRCCOPY);

    Gdiplus::Graphics graphics(window.frameDC);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
    Canvas canvas{graphics};
    DrawFrameLayers(canvas, window, dirty);
}
