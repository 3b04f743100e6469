// The scenery buffer and the composition of a frame over it, through cairo.
#include <cairo.h>

#include "app/display_windows.h"
#include "render/canvas_linux.h"
#include "render/frame_buffers.h"
#include "render/frame_composition.h"
#include "render/scenery.h"

namespace {

bool Usable(cairo_surface_t* surface) {
    return surface && cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS;
}

}  // namespace

void RenderScenery(DisplayWindow& window) {
    if (!Usable(window.scenerySurface)) return;
    cairo_t* cr = cairo_create(window.scenerySurface);
    cairo_set_source_rgb(cr, (kSceneryClearColour >> 16 & 0xFF) / 255.0, (kSceneryClearColour >> 8 & 0xFF) / 255.0,
                         (kSceneryClearColour & 0xFF) / 255.0);
    cairo_paint(cr);
    // Painted once per buffer, so with cairo's finest anti-aliasing.
    Canvas canvas{cr};
    DrawScenery(canvas, {0, 0, window.width, window.height}, window.sceneryTheme);
    cairo_destroy(cr);
}

void ComposeFrame(DisplayWindow& window, const Rect& dirty) {
    if (!Usable(window.frameSurface) || !Usable(window.scenerySurface)) return;
    if (Width(dirty) < 1 || Height(dirty) < 1) return;

    cairo_t* cr = cairo_create(window.frameSurface);
    // The landscape comes back under the dirty rectangle first, so nothing
    // of an earlier frame survives where things have moved on.
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, window.scenerySurface, 0, 0);
    cairo_rectangle(cr, dirty.left, dirty.top, Width(dirty), Height(dirty));
    cairo_fill(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_OVER);

    Canvas canvas = FrameCanvas(cr);
    DrawFrameLayers(canvas, window, dirty);
    cairo_destroy(cr);
    cairo_surface_flush(window.frameSurface);
}
