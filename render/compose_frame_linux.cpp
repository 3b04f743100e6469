// The scenery buffer and the composition of a frame over it, through cairo.
#include <cairo.h>

#include <algorithm>

#include "play/display_records.h"
#include "render/canvas_linux.h"
#include "render/compose_frame_linux.h"
#include "render/frame_buffers.h"
#include "render/frame_composition.h"
#include "render/scenery.h"
#include "render/window_buffers_linux.h"

namespace {

bool Usable(cairo_surface_t* surface) {
    return surface && cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS;
}

}  // namespace

void RenderScenery(DisplayWindow& window) {
    if (!Usable(ScenerySurface(window))) return;
    cairo_t* cr = cairo_create(ScenerySurface(window));
    cairo_set_source_rgb(cr, (kSceneryClearColour >> 16 & 0xFF) / 255.0, (kSceneryClearColour >> 8 & 0xFF) / 255.0,
                         (kSceneryClearColour & 0xFF) / 255.0);
    cairo_paint(cr);
    // Painted once per buffer, so with cairo's finest anti-aliasing.
    Canvas canvas{cr};
    DrawScenery(canvas, {0, 0, window.width, window.height}, window.sceneryTheme);
    cairo_destroy(cr);
}

namespace {

// cairo's fast anti-aliasing cuts a shape at a clip's edge a little
// differently from drawing it whole: the pixels next to the edge (two deep,
// seen at wide strokes) come out a few levels off, a seam where rectangles
// meet. Each rectangle is therefore composed with this margin around it, in
// a scratch surface, and only the rectangle itself is copied out.
constexpr int32_t kSeamMargin = 4;

// The scratch surface, kept between frames and grown as needed.
cairo_surface_t* g_scratch = nullptr;

cairo_surface_t* Scratch(int32_t width, int32_t height) {
    if (g_scratch && cairo_image_surface_get_width(g_scratch) >= width &&
        cairo_image_surface_get_height(g_scratch) >= height) {
        return g_scratch;
    }
    if (g_scratch) {
        width = std::max(width, cairo_image_surface_get_width(g_scratch));
        height = std::max(height, cairo_image_surface_get_height(g_scratch));
        cairo_surface_destroy(g_scratch);
    }
    g_scratch = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    return g_scratch;
}

// The landscape, then the layers clipped to the area, in the scratch
// surface whose top-left pixel is the area's.
void ComposeArea(cairo_surface_t* scratch, const DisplayWindow& window, const Rect& area) {
    cairo_t* cr = cairo_create(scratch);
    cairo_translate(cr, -area.left, -area.top);
    // The landscape comes back first, so nothing of an earlier frame
    // survives where things have moved on.
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, ScenerySurface(window), 0, 0);
    cairo_rectangle(cr, area.left, area.top, Width(area), Height(area));
    cairo_fill(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
    Canvas canvas = FrameCanvas(cr);
    DrawFrameLayers(canvas, window, area);
    cairo_destroy(cr);
    cairo_surface_flush(scratch);
}

}  // namespace

void ComposeRects(cairo_surface_t* target, const DisplayWindow& window, const Rect* rects, int count) {
    if (!Usable(target) || !Usable(ScenerySurface(window))) return;
    const Rect client{0, 0, window.width, window.height};
    cairo_t* cr = cairo_create(target);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    for (int i = 0; i < count; ++i) {
        const Rect dirty = Intersection(rects[i], client);
        if (IsEmpty(dirty)) continue;
        // At the window's edges the whole frame is cut just the same.
        const Rect area = Intersection(
            {dirty.left - kSeamMargin, dirty.top - kSeamMargin, dirty.right + kSeamMargin, dirty.bottom + kSeamMargin},
            client);
        cairo_surface_t* scratch = Scratch(Width(area), Height(area));
        if (!Usable(scratch)) break;
        ComposeArea(scratch, window, area);
        cairo_set_source_surface(cr, scratch, area.left, area.top);
        cairo_rectangle(cr, dirty.left, dirty.top, Width(dirty), Height(dirty));
        cairo_fill(cr);
    }
    cairo_destroy(cr);
    cairo_surface_flush(target);
}

void ComposeFrame(DisplayWindow& window, const Rect& dirty) { ComposeRects(FrameSurface(window), window, &dirty, 1); }
