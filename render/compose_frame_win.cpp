// The scenery buffer and the composition of a frame over it, through GDI+.
#include "play/display_records.h"
#include "render/canvas_win.h"
#include "render/frame_buffers.h"
#include "render/window_buffers_win.h"
#include "render/frame_composition.h"
#include "render/scenery.h"

void RenderScenery(DisplayWindow& window) {
    if (!SceneryDC(window)) return;
    Gdiplus::Graphics graphics(SceneryDC(window));
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.Clear(Gdiplus::Color(kSceneryClearColour));
    Canvas canvas{graphics};
    DrawScenery(canvas, {0, 0, window.width, window.height}, window.sceneryTheme);
}

void ComposeFrame(DisplayWindow& window, const Rect& dirty) {
    if (!FrameDC(window) || !SceneryDC(window)) return;
    if (Width(dirty) < 1 || Height(dirty) < 1) return;

    // The landscape comes back under the dirty rectangle first, so nothing
    // of an earlier frame survives where things have moved on.
    BitBlt(FrameDC(window), dirty.left, dirty.top, Width(dirty), Height(dirty), SceneryDC(window), dirty.left,
           dirty.top, SRCCOPY);

    Gdiplus::Graphics graphics(FrameDC(window));
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
    Canvas canvas{graphics};
    DrawFrameLayers(canvas, window, dirty);
}
